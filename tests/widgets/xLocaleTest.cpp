// Numbers under a desktop whose language writes a decimal comma: the suite
// builds a German locale of its own, runs the application in it (the
// application sets the C library's locale from the environment, as on any
// desktop), and checks that fields, grid cells, the clipboard, the settings
// file and the messages all read and write "." as the decimal point.

#include "app/xIniSettings.h"
#include "tests/app/IniTestPlatform.h"
#include "widgets/x2DGPort.h"
#include "widgets/xClipboardExchange.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "xCommandRecorder.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace {

int argCount = 1;
char programName[] = "tolvad_tests_locale";
char* arguments[] = {programName, nullptr};

// A comma-decimal locale in a directory of the suite, and the application in it.
class CommaDesktop : public ::testing::Environment {
public:
    void SetUp() override
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "tolvadLocaleXXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        directory = pattern;
        const std::string command = "localedef -c -i de_DE -f UTF-8 " + directory + "/de_DE.UTF-8 >/dev/null 2>&1";
        std::system(command.c_str());
        ASSERT_TRUE(std::filesystem::exists(directory + "/de_DE.UTF-8")) << "localedef made no de_DE.UTF-8";
        setenv("LOCPATH", directory.c_str(), 1);
        setenv("LC_ALL", "de_DE.UTF-8", 1);
        if (!std::getenv("QT_QPA_PLATFORM"))
            setenv("QT_QPA_PLATFORM", "offscreen", 1);
        application = std::make_unique<QApplication>(argCount, arguments);
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    }
    void TearDown() override
    {
        application.reset();
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }

private:
    std::string directory;
    std::unique_ptr<QApplication> application;
};

} // namespace

TEST(CommaDesktop, FieldsGridCellsTheClipboardTheSettingsFileThePlotAndTheMessagesUseAPoint)
{
    IniTestPlatform platform;
    xCommandRecorder card;
    card.show();
    QApplication::setActiveWindow(&card);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&card));

    xEditBox box(&card, QRect(10, 10, 300, 23), 90, 1.5f, "x", "%10.7e");
    EXPECT_EQ(box.Field()->text(), "1.5000000e+00");
    box.Field()->setFocus();
    box.Field()->selectAll();
    QTest::keyClicks(box.Field(), "2.5");
    FloatMatrix table(1, 1, 1, 2);
    *table.Element(1, 1) = 0.5f;
    xGridEdView view(&card, QRect(10, 70, 300, 200), 5, 2, 10, 2, &table);
    EXPECT_EQ(view.Grid()->CellText(0, 0), "5.00e-01");
    view.EditField()->setFocus();   // which ends the box's edit
    view.EditField()->selectAll();
    QTest::keyClicks(view.EditField(), "2.5");
    EXPECT_EQ(box.Value().Float(), 2.5f);
    QTest::keyClick(view.EditField(), Qt::Key_Return);
    EXPECT_EQ(view.Grid()->Values().Value(0, 0), 2.5f);
    EXPECT_EQ(view.Grid()->CellText(0, 0), "2.50e+00");

    xClipboardExchange clipboard;
    *table.Element(1, 2) = -1250.5f;
    ASSERT_TRUE(clipboard.CopyTable(table));
    EXPECT_EQ(platform.clipboard, " 5.0000000e-01 -1.2505000e+03\n");
    FloatMatrix back(1, 1, 1, 2);
    ASSERT_TRUE(clipboard.PasteTable(back));
    EXPECT_EQ(back, table);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    CreateIni();
    iniSettings->thinSheet[107] = 4.5f;
    DestroyIni();
    std::string text = platform.Get("Varnel.INI");
    EXPECT_NE(text.find("\n0 0 0 0 0 0 4.5 0 3\n"), std::string::npos);
    const std::string key = "Acceptable amplitude scale deviation level=";
    platform.Put("Varnel.INI", text.replace(text.find(key + "10"), key.size() + 2, key + "10.5"));
    CreateIni();
    EXPECT_EQ(iniSettings->amplitudeDeviation, 10.5f);
    DestroyIni();
    EXPECT_NE(platform.Get("Varnel.INI").find(key + "10.5\n"), std::string::npos);

    x2DGPort port(&card, QRect(0, 300, 300, 100));
    port.SetEndLabels(0.5f, 2.5f, "FID ", "%.1f", true);
    EXPECT_EQ(port.startLabel->text(), "FID 0.5");
    PostNote("Tolvad v.%5.2f", 5.0);
    EXPECT_EQ(platform.Texts(xPlatform::kNote), std::vector<std::string>{"Tolvad v. 5.00"});
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new CommaDesktop);
    return RUN_ALL_TESTS();
}
