#include "CBaseWin.h"
#include "CBPPopWnd.h"
#include "CBPQtMainWindow.h"
#include "CBPStyle.h"
#include "CBPWinWidget.h"
#include "Later.h"
#include "Rows.h"
#include "TestMain.h"
#include "ThemeProbe.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTabWidget>
#include <QToolTip>
#include <QVBoxLayout>

using lumqt::Purpose;

namespace {

// Gives the application a style, for the time of a block.
auto styled(const QString &name)
{
    const QString before = QApplication::style()->objectName();
    name == "CBPStyle" ? CBPStyle::Install() : void(QApplication::setStyle(name));
    return qScopeGuard([before] { QApplication::setStyle(before); });
}

} // namespace

// What Qt's own widgets look like in a theme.
class TestThemeStyle : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        CBPTheme::givePalette(false);
        CBPTheme::apply("light");
    }

    // In the colours that go with the palette, the application's or the theme's.
    void style()
    {
        const auto check = [](QWidget &widget, std::initializer_list<Purpose> shown) {
            CBPStyle::Apply(&widget);
            widget.resize(120, 60);
            QPalette violet(QColor(90, 80, 100));
            violet.setColor(QPalette::Base, QColor(40, 30, 60));
            const QVector<QPalette> owns{QPalette(), violet};
            QVector<QImage> light;
            for (const char *theme : {"light", "dark", "contrast"}) {
                CBPTheme::apply(theme);
                for (int i = 0; i < owns.size(); ++i) {
                    widget.setPalette(owns[i]);
                    light += i < light.size() ? QVector<QImage>() : QVector<QImage>{grabOf(widget)};
                    QVERIFY2(grabOf(widget) == light[i], widget.metaObject()->className());
                }
                widget.setPalette(CBPTheme::palette());
                QVERIFY2(shows(grabOf(widget), shown), widget.metaObject()->className());
            }
            CBPTheme::apply("light");
        };
        QLineEdit edit;
        QComboBox combo;
        QSpinBox spin;
        QPushButton button;
        QCheckBox box, checked;
        checked.setChecked(true);
        check(edit, {Purpose::Field, Purpose::Frame});
        check(combo, {Purpose::Field, Purpose::Frame, Purpose::FieldTriangle});
        check(spin, {Purpose::Field, Purpose::Frame});
        check(button, {Purpose::ButtonGround, Purpose::ButtonFrame});
        check(box, {Purpose::Field, Purpose::Frame});
        check(checked, {Purpose::Accent});
    }

    // Qt's own style makes their outlines of the ground.
    void barsOnDark()
    {
        const auto restore = styled("Fusion");
        CBPStyle style;
        QProgressBar bar;
        bar.setStyle(&style);
        bar.setTextVisible(false);
        bar.resize(100, 20);
        QSlider slider(Qt::Horizontal);
        slider.setStyle(&style);
        slider.setValue(50);
        slider.resize(100, 20);
        const auto edge = [&bar] { return qGray(grabOf(bar).pixelColor(80, 0).rgb()); };
        const QImage light = grabOf(slider);
        const int lightEdge = edge();
        for (const char *theme : {"dark", "contrast"}) {
            CBPTheme::apply(theme);
            QVERIFY(grabOf(slider) == light && edge() == lightEdge); // as the palette
            bar.setPalette(CBPTheme::palette());
            slider.setPalette(CBPTheme::palette());
            QVERIFY(edge() > 100);
            QVERIFY(shows(grabOf(slider), {Purpose::SliderHandle, Purpose::SliderTrack}));
            bar.setPalette(QPalette());
            slider.setPalette(QPalette());
        }
        slider.setStyle(nullptr);
        bar.setStyle(nullptr);
    }

    void palettes()
    {
        const auto restore = styled("Fusion"); // Windows' own style is given less
        const QPalette tips = QToolTip::palette(), menus = QApplication::palette("QMenu");
        const auto check = [](QWidget *window) {
            const QScopedPointer<QWidget> owner(window);
            QLineEdit plain(window), own(window);
            QPalette red = own.palette();
            red.setColor(QPalette::Text, Qt::red);
            own.setPalette(red);
            QVERIFY(!window->testAttribute(Qt::WA_SetPalette));
            const QPalette before = plain.palette();
            CBPTheme::apply("dark");
            for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Text, QPalette::Button})
                QCOMPARE(plain.palette().color(role), before.color(role));
            CBPTheme::givePalette(true);
            for (const char *theme : {"dark", "contrast", "light"}) {
                CBPTheme::apply(theme);
                for (const QPalette &palette :
                     {plain.palette(), own.palette(), QToolTip::palette(), QApplication::palette("QMenu")})
                    QVERIFY(palette.color(QPalette::Base) == lumqt::themeColor(Purpose::Field) &&
                            palette.color(QPalette::ToolTipText) == lumqt::themeColor(Purpose::Text));
                QCOMPARE(own.palette().color(QPalette::Text), QColor(Qt::red));
            }
            CBPTheme::givePalette(false);
            QVERIFY(!window->testAttribute(Qt::WA_SetPalette) && plain.palette() == before);
        };
        check(new CBaseWin);
        check(new CBPQtMainWindow);
        check(new CBPPopWnd(nullptr));
        check(new CBPWinWidget(nullptr));
        QVERIFY(QToolTip::palette().toolTipBase() == tips.toolTipBase() &&
                QApplication::palette("QMenu").base() == menus.base());
        QPalette green = tips; // the application's own
        green.setColor(QPalette::ToolTipBase, Qt::green);
        CBPTheme::givePalette(true);
        QToolTip::setPalette(green);
        CBPTheme::apply("dark");
        CBPTheme::givePalette(false);
        QVERIFY(QToolTip::palette() == green);
        QToolTip::setPalette(tips);
    }

    void plainWidgets_data() { names("style", {"Fusion", "Windows", "CBPStyle"}); }
    void plainWidgets()
    {
        QFETCH(QString, style);
        const auto restore = styled(style);
        const auto motion = restoring(lumqt::platform::answers().lessMotion);
        lumqt::platform::answers().lessMotion = [] { return false; };
        CBPTheme::givePalette(true);
        CBPQtMainWindow window;
        window.setCentralWidget(new QWidget);
        QVBoxLayout layout(window.centralWidget());
        QComboBox combo;
        combo.addItems({"One", "Two", "Three"});
        QTabWidget tabs;
        tabs.addTab(new QLineEdit("Text"), "Tab");
        QTableWidget table(2, 1);
        QSpinBox spin;
        QCheckBox box("Check");
        for (QWidget *widget : QVector<QWidget *>{&combo, &tabs, &table, &spin, &box})
            layout.addWidget(widget);
        window.show();
        window.grab();
        CBPTheme::apply("dark"); // at once, which nothing fades into
        combo.showPopup();
        QToolTip::showText(QPoint(), "Tip", &window);
        QVector<QWidget *> all{&window, combo.view()->window()};
        for (QWidget *top : QApplication::topLevelWidgets())
            all += top->inherits("QTipLabel") ? QVector<QWidget *>{top} : QVector<QWidget *>();
        QCOMPARE(all.size(), 3);
        for (QWidget *widget : qAsConst(all)) { // nothing is lighter than the texts
            const QList<QRgb> colors = colorsIn(grabOf(*widget), widget->rect()).keys();
            const auto isDarker = [](QRgb one, QRgb other) { return qGray(one) < qGray(other); };
            const int lightest = qGray(*std::max_element(colors.begin(), colors.end(), isDarker));
            QVERIFY2(lightest > 150 && lightest <= qGray(lumqt::themeColor(Purpose::Text).rgb()),
                     widget->metaObject()->className());
        }
        QToolTip::hideText();
    }
};

LUMQT_TEST_MAIN(TestThemeStyle)

#include "tst_theme_style.moc"
