// Pictures of the editor's cards: every card of every orientation of each
// descriptor named, rendered offscreen and saved as
// OUT_DIR/EXAMPLE-CARD-ORIENTATION.png (EXAMPLE the file name without .DSC,
// CARD the card's title in lower case with blanks as dashes). The geometry
// card comes twice: in its section, and in its plan with "-plan" behind.
#include "cards/xEMGCardLogic.h"
#include "frame/xCard.h"
#include "frame/xDescWin.h"
#include "frame/xEMWinDesc.h"
#include "gui/xHeadlessPlatform.h"
#include "model/xTROrientation.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

std::string Slug(const std::string& title)
{
    std::string slug;
    for (char c : title)
        slug += c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return slug;
}

// The window as it stands into OUT_DIR/STEM.png; false when it can't be written.
bool Save(QWidget& window, const QDir& out, const std::string& stem, int& written)
{
    QString name = QString::fromStdString(stem + ".png");
    if (!window.grab().save(out.filePath(name))) {
        std::fprintf(stderr, "tolvad-cardshots: cannot write %s\n", name.toLocal8Bit().constData());
        return false;
    }
    ++written;
    return true;
}

// Renders the cards of one descriptor; false when it can't be read.
bool Render(const QString& path, const QDir& out, int& written)
{
    xEMWinDesc document;
    document.SetFilePath(path.toStdString());
    if (!document.Load()) {
        std::fprintf(stderr, "tolvad-cardshots: cannot read %s\n", path.toLocal8Bit().constData());
        return false;
    }
    document.BuildWindow();
    xDescWin* window = document.DescWindow();
    const std::string example = QFileInfo(path).completeBaseName().toStdString();
    std::vector<int> codes;
    for (const auto& item : document.items)
        if (item.second->code > kFirstOrientationCode)
            codes.push_back(item.second->code);
    std::sort(codes.begin(), codes.end());
    for (int code : codes) {
        document.PickOrientation(code);
        // Selecting a tab of the back row brings that row to the front and
        // renumbers the tabs: the cards are taken by their titles.
        std::vector<std::string> titles;
        for (int index = 0; index < window->CardCount(); ++index)
            titles.push_back(window->CardAt(index)->Title());
        for (const std::string& title : titles) {
            xCard* card = window->FindCard(title);
            window->SelectCardOf(card);
            QApplication::processEvents();
            const std::string stem = example + "-" + Slug(card->Title()) + "-" + CodeName(code);
            if (!Save(*window, out, stem, written))
                return false;
            // The geometry card once more in its other view, the plan.
            if (card->Title() == xEMEditDesc::kGeometryCard) {
                card->DoCommand(xEMGCardLogic::kFlipView, nullptr);
                QApplication::processEvents();
                bool saved = Save(*window, out, stem + "-plan", written);
                card->DoCommand(xEMGCardLogic::kFlipView, nullptr);
                if (!saved)
                    return false;
            }
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qt(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: tolvad-cardshots OUT_DIR EXAMPLE.DSC...\n");
        return 64;
    }
    QDir out(arguments[1]);
    if (!out.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "tolvad-cardshots: cannot make %s\n", arguments[1].toLocal8Bit().constData());
        return 1;
    }
    // Reading a file makes its folder current: the names are made full first.
    QStringList paths;
    for (int i = 2; i < arguments.size(); ++i)
        paths << QFileInfo(arguments[i]).absoluteFilePath();
    out.makeAbsolute();
    xHeadlessPlatform platform;
    SetPlatform(&platform);
    int written = 0;
    bool good = true;
    for (const QString& path : paths)
        good = Render(path, out, written) && good;
    SetPlatform(nullptr);
    std::printf("%d pictures in %s\n", written, arguments[1].toLocal8Bit().constData());
    return good ? 0 : 1;
}
