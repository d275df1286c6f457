#include "widgets/xClipboardExchange.h"

#include "gui/xPlatform.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "numeric/xCNumber.h"

#include <algorithm>

namespace {

// A token is a number when it holds nothing but the characters of decimal or
// scientific notation, reads to its end with "." as the decimal point, and
// fits a float.
bool ReadNumber(const std::string& token, float& value)
{
    if (token.find_first_not_of("0123456789+-.eE") != std::string::npos)
        return false;
    const char* stop = nullptr;
    return xCNumber::ReadFloat(token.c_str(), value, &stop) == xCNumber::kNumber && *stop == '\0';
}

} // namespace

bool xClipboardExchange::GetClipboardText(std::string& text)
{
    if (!Platform().HasClipboardText())
        return false;
    text = Platform().GetClipboardText();
    return true;
}

bool xClipboardExchange::PutClipboardText(const std::string& text)
{
    Platform().PutClipboardText(text);
    return Platform().HasClipboardText();
}

int xClipboardExchange::ParseClipboardNumbers(const std::string& text, FloatArray& numbers)
{
    static const char* const kDelimiters = " \t\r\n";
    int limit = std::min(kMaxItems, static_cast<int>(numbers.Size()));
    int count = 0;
    size_t at = text.find_first_not_of(kDelimiters);
    while (at != std::string::npos) {
        size_t end = text.find_first_of(kDelimiters, at);
        std::string token = text.substr(at, end == std::string::npos ? std::string::npos : end - at);
        if (count >= limit) {
            PostNote("Exceeded maximum number of clipboard items.");
            return count;
        }
        float value = 0.0f;
        if (!ReadNumber(token, value)) {
            PostNote("%s%s", "Clipboard contains illegal character. ",
                     "Numbers only please (scientific notation OK).");
            return 0;
        }
        numbers[numbers.Lower() + count] = value;
        ++count;
        at = end == std::string::npos ? end : text.find_first_not_of(kDelimiters, end);
    }
    return count;
}

bool xClipboardExchange::PasteTable(FloatMatrix& matrix)
{
    std::string text;
    if (!GetClipboardText(text)) {
        PostNote("Illegal clipboard contents.");
        return false;
    }
    FloatArray numbers(kMaxItems);
    int count = ParseClipboardNumbers(text, numbers);
    if (count == 0)
        return false;
    int columns = matrix.Cols();
    if (columns <= 0 || count % columns != 0) {
        PostNote("%s%s%s", "Illegal number of items on clipboard. ",
                 "the total number of items has to be divisible by 3 for wform samples ",
                 "or by 2 for window samples.");
        return false;
    }
    int rows = count / columns;
    matrix.Resize(matrix.RowLower(), matrix.RowLower() + rows - 1, matrix.ColLower(), matrix.ColUpper());
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            *matrix.Element(matrix.RowLower() + r, matrix.ColLower() + c) = numbers[r * columns + c];
    return true;
}

std::string xClipboardExchange::TableText(const FloatMatrix& matrix)
{
    std::string text;
    text.reserve(static_cast<size_t>(matrix.Rows()) * matrix.Cols() * 15);
    for (int r = matrix.RowLower(); r <= matrix.RowUpper(); ++r) {
        for (int c = matrix.ColLower(); c <= matrix.ColUpper(); ++c)
            text += xCNumber::Printf(" %10.7e", static_cast<double>(xCNumber::Finite(matrix.Row(r)[c])));
        text += '\n';
    }
    return text;
}

bool xClipboardExchange::CopyTable(const FloatMatrix& matrix)
{
    return PutClipboardText(TableText(matrix));
}

std::vector<std::string> xClipboardExchange::Lines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}
