#include "Await.h"
#include "CBaseWin.h"
#include "CBPImageButton.h"
#include "CBPQtLine.h"
#include "CBPTableWidget.h"
#include "CBPWinFrmTitle.h"
#include "Later.h"
#include "TestMain.h"
#include "ThemeProbe.h"
#include "Util.h"

#include <QLabel>
#include <QSettings>

#if defined(Q_OS_WIN)
#include <windows.h>
#endif

using lumqt::Purpose;

namespace {

// The user wants another appearance, in the platform's own way.
void choose(QWidget &window, bool dark)
{
#if defined(Q_OS_WIN)
    QSettings("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
              QSettings::NativeFormat)
        .setValue("AppsUseLightTheme", dark ? 0 : 1);
    SendMessageW(HWND(window.winId()), WM_SETTINGCHANGE, 0, LPARAM(L"ImmersiveColorSet"));
#else
    Q_UNUSED(window)
    QApplication::setPalette(dark ? QPalette(Qt::black) : QPalette());
#endif
}

QColor titleOf(QWidget &bar)
{
    return bar.findChild<QLabel *>("CBPWinFrmTitle_WindTitle")->palette().color(QPalette::WindowText);
}

} // namespace

class TestThemeFrames : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        CBPTheme::givePalette(false);
        CBPTheme::apply("light");
    }

    // main() has asked for it before there was an application.
    void followsFromTheBeginning()
    {
        QWidget window;
        for (const bool dark : {true, false}) {
            choose(window, dark);
            AWAIT_EQUAL(CBPTheme::current(), QString(dark ? "dark" : "light"));
        }
        const auto before = restoring(lumqt::platform::answers().appearance);
        int asked = 0;
        lumqt::platform::answers().appearance = [&asked] {
            ++asked;
            return lumqt::platform::Appearance::HighContrast;
        };
        choose(window, true);
        choose(window, false); // as each window hears of the same
        AWAIT_EQUAL(CBPTheme::current(), QString("contrast"));
        QCOMPARE(asked, 1);
        choose(window, true);
        CBPTheme::apply("dark");
        choose(window, false);
        QCoreApplication::processEvents();
        QVERIFY(CBPTheme::current() == "dark" && asked == 1);
    }

    void windowsAndViews()
    {
        CBaseWin window;
        window.setCaption("Caption");
        window.resize(400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, kPatience));
        CBPQtLine line;
        line.resize(5, 31);
        CBPTableWidget table(nullptr);
        table.setRowCount(2);
        table.setColumnCount(1);
        table.selectRow(0);
        const auto all = [&] {
            return QVector<QImage>{window.grabWithFrame().toImage(), grabOf(line), grabOf(table)};
        };
        const QVector<QImage> light = all();
        const QRect place = window.geometry();
        for (const char *theme : {"dark", "contrast"}) {
            CBPTheme::apply(theme);
            const QVector<QImage> now = all();
            QVERIFY(shows(now[0].convertToFormat(QImage::Format_ARGB32),
                          {Purpose::WindowBorder, Purpose::WindowCaption, Purpose::WindowGround,
                           Purpose::WindowCaptionLine, Purpose::WindowCaptionText}));
            QVERIFY(shows(now[1], {Purpose::SeparatorMiddle}));
            QVERIFY(shows(now[2], {Purpose::Field, Purpose::RaisedGround, Purpose::ChosenInactive}));
        }
        CBPTheme::apply("light");
        QVERIFY(all() == light && window.geometry() == place);
    }

    void titles()
    {
        const QString file = Util::getResFullPath("../res/UIConfig.ini");
        const auto restore = restoringFile(file);
        QSettings settings(file, QSettings::IniFormat);
        settings.clear();
        settings.setValue("window/title_bgcolor", "#102030"); // and no colour of the text
        settings.sync();
        CBPWinFrmTitle bar(nullptr), own(nullptr);
        for (CBPWinFrmTitle *one : {&bar, &own}) {
            one->resize(400, one->height());
            one->SetHasNewVersion(true);
            one->ShowTitleBtn(64 + 128, true);
        }
        QColor ground(0x10, 0x20, 0x30); // what it has already: set it is all the same
        own.SetBgColor(ground);
        own.SetTitleClr(lumqt::builtInColor(Purpose::TitleText));
        own.titleBtn(128)->SetBkgColors(lumqt::builtInColors(Purpose::TitleButton));
        own.titleBtn(64)->SetSpecialIcon(true, lumqt::builtInColor(Purpose::TitleNotice));
        const QImage light = grabOf(bar);
        for (const char *theme : {"dark", "contrast", "light"}) {
            CBPTheme::apply(theme);
            const bool says = CBPTheme::current() == "contrast";
            QCOMPARE(grabbedAt(bar, 200, 30),
                     says ? lumqt::themeColor(Purpose::TitleGround) : QColor(0x10, 0x20, 0x30));
            QCOMPARE(grabbedAt(bar, 200, bar.height() - 1),
                     says ? lumqt::themeColor(Purpose::TitleLine) : grabbedAt(bar, 200, 30));
            QCOMPARE(titleOf(bar), lumqt::themeColor(Purpose::TitleText));
            QVERIFY(shows(grabOf(bar), {Purpose::TitleButton, Purpose::TitleNotice}));
            const QHash<QRgb, int> owns = colorsIn(grabOf(own), own.rect());
            for (const Purpose set : {Purpose::TitleButton, Purpose::TitleNotice})
                QVERIFY(owns.contains(lumqt::builtInColor(set).rgb()));
            QVERIFY(grabbedAt(own, 200, 30) == ground && titleOf(own) == QColor(127, 143, 164));
        }
        QVERIFY(grabOf(bar) == light);
    }
};

int main(int argc, char *argv[])
{
    CBPTheme::followSystem(true);
    return runTest<TestThemeFrames>(argc, argv);
}

#include "tst_theme_frames.moc"
