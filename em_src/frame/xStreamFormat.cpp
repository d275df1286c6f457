#include "frame/xStreamFormat.h"

#include <cstdlib>
#include <ostream>
#include <regex>

namespace {

// The leading digits of a matched format, as a number.
int LeadingNumber(const std::string& text)
{
    return std::atoi(text.c_str());
}

// The digits behind the letter of "<w>e<p>" or "<w>f<p>".
int TrailingNumber(const std::string& text)
{
    size_t letter = text.find_first_not_of("0123456789");
    return std::atoi(text.c_str() + letter + 1);
}

} // namespace

bool SetStreamFormat(std::ostream& stream, const std::string& format)
{
    enum Form { kNone, kScientific, kFixed, kInteger, kLong, kString };
    static const std::regex patterns[] = {
        std::regex("[0-9]+[eE][0-9]+"), std::regex("[0-9]+[fF][0-9]+"),
        std::regex("[0-9]+[iI]"), std::regex("[0-9]+[lL]"), std::regex("[0-9]+[sS]")};

    Form form = kNone;
    std::string found;
    for (int i = 0; i < 5; ++i) {
        std::smatch match;
        if (std::regex_search(format, match, patterns[i])) {
            form = static_cast<Form>(i + 1);
            found = match.str();
        }
    }
    if (form == kNone)
        return true;

    int width = LeadingNumber(found);
    stream.width(width);
    stream.setf(std::ios::right, std::ios::adjustfield);
    switch (form) {
    case kScientific:
        stream.setf(std::ios::scientific, std::ios::floatfield);
        stream.precision(TrailingNumber(found));
        break;
    case kFixed:
        stream.setf(std::ios::fixed, std::ios::floatfield);
        stream.precision(TrailingNumber(found));
        break;
    default:
        stream.precision(width);
        break;
    }
    return true;
}
