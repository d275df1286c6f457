#include "gui/xQtPlatform.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QScreen>

#include <cctype>
#include <cstdio>
#include <cstdlib>

namespace {

QString Q(const std::string& text)
{
    return QString::fromLocal8Bit(text.data(), static_cast<int>(text.size()));
}

std::string S(const QString& text)
{
    QByteArray bytes = text.toLocal8Bit();
    return std::string(bytes.constData(), static_cast<size_t>(bytes.size()));
}

void Show(QWidget* parent, QMessageBox::Icon icon, const char* title, const std::string& text)
{
    QMessageBox box(icon, QString::fromLatin1(title), Q(text), QMessageBox::Ok, parent);
    box.exec();
}

} // namespace

xQtPlatform::xQtPlatform() = default;

void xQtPlatform::Note(const std::string& text)
{
    Show(dialogParent, QMessageBox::Information, "Note", text);
}

void xQtPlatform::Warning(const std::string& text)
{
    Show(dialogParent, QMessageBox::Warning, "Warning", text);
}

void xQtPlatform::Error(const std::string& text)
{
    Show(dialogParent, QMessageBox::Critical, "Error", text);
}

void xQtPlatform::FatalExit(const std::string& text)
{
    Show(dialogParent, QMessageBox::Critical, "Fatal error", text);
    if (fatalHook)
        fatalHook();
    // End at once: after a fatal fault the widgets and the model may be in any
    // state, so no destructor or exit handler of them should run.
    std::fflush(nullptr);
    std::_Exit(2);
}

int xQtPlatform::Ask(const std::string& first, const std::string& second, const std::string& third,
                     const std::string& text)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Question"), Q(text), QMessageBox::NoButton,
                    dialogParent);
    // Buttons stand left to right in the order given; the answer is their place.
    QPushButton* buttons[3] = {
        box.addButton(Q(first), QMessageBox::ActionRole),
        box.addButton(Q(second), QMessageBox::ActionRole),
        third.empty() ? nullptr : box.addButton(Q(third), QMessageBox::ActionRole)};
    box.setDefaultButton(buttons[0]);
    box.setEscapeButton(buttons[2] ? buttons[2] : buttons[1]);
    box.exec();
    for (int i = 0; i < 3; ++i)
        if (buttons[i] && box.clickedButton() == buttons[i])
            return i;
    return third.empty() ? 1 : 2;   // closed by the window frame: the last button
}

std::string xQtPlatform::FilterFor(const xFileDialogRequest& request)
{
    std::string pattern;
    for (char c : request.filterPattern) {
        unsigned char u = static_cast<unsigned char>(c);
        if (std::isalpha(u) && std::tolower(u) != std::toupper(u)) {
            pattern += '[';
            pattern += static_cast<char>(std::tolower(u));
            pattern += static_cast<char>(std::toupper(u));
            pattern += ']';
        } else {
            pattern += c;
        }
    }
    return request.filterDescription + " (" + pattern + ")";
}

int xQtPlatform::ChooseFile(const xFileDialogRequest& request, std::string& chosenPath)
{
    QFileDialog dialog(dialogParent, Q(request.title), Q(request.directory));
    dialog.setAcceptMode(request.isOpen ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(request.isOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::ReadOnly, false);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, true);   // the caller asks its own question
    if (!request.filterPattern.empty())
        dialog.setNameFilter(Q(FilterFor(request)));
    if (!request.defaultExtension.empty())
        dialog.setDefaultSuffix(Q(request.defaultExtension));
    if (!request.isOpen && !request.suggestedName.empty())
        dialog.selectFile(Q(request.suggestedName));
    if (dialog.exec() != QDialog::Accepted)
        return 1;
    QStringList files = dialog.selectedFiles();
    if (files.isEmpty() || files.first().isEmpty())
        return 0;
    chosenPath = S(QFileInfo(files.first()).absoluteFilePath());
    return 2;
}

bool xQtPlatform::HasClipboardText()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

std::string xQtPlatform::GetClipboardText()
{
    return S(QGuiApplication::clipboard()->text());
}

void xQtPlatform::PutClipboardText(const std::string& text)
{
    QGuiApplication::clipboard()->setText(Q(text));
}

void xQtPlatform::Beep()
{
    QApplication::beep();
}

void xQtPlatform::ScreenSize(int& width, int& height)
{
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) {
        width = 1024;
        height = 768;
        return;
    }
    QRect area = screen->availableGeometry();
    width = area.width();
    height = area.height();
}

bool xQtPlatform::StartProgram(const std::string& program, const std::vector<std::string>& arguments)
{
    QStringList words;
    for (const std::string& argument : arguments)
        words.append(Q(argument));
    return !program.empty() && QProcess::startDetached(Q(program), words);
}
