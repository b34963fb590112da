#include "Acts.h"
#include "CBPComboxItem.h"
#include "CBPPathDropdWnd.h"
#include "RealInput.h"
#include "TestMain.h"

#include <QPushButton>

namespace {

// Where an X server's window manager shows a list wrongly, it is now and then.
#ifdef Q_OS_WIN
constexpr int kFirstShows = 2;
#else
constexpr int kFirstShows = 8;
#endif

// A button that drops a list of three, as an application does it.
struct Scene
{
    QWidget window;
    QPushButton button{"Recent", &window};
    CBPPathDropdWnd list{&window};
    QStringList picked;

    Scene()
    {
        list.SetFixedWidth(330);
        for (const char *path : {"/one", "/two", "/three"}) {
            ComboxItem item;
            item.path = path;
            list.AppendItem(item);
        }
        QObject::connect(&list, &CBPPathDropdWnd::itemClicked, &window,
                         [this](ComboxItem &item) { picked << item.path; });
        QObject::connect(&button, &QPushButton::clicked, &window, [this] {
            list.move(button.mapToGlobal(QPoint(0, button.height() + 20)));
            list.show();
        });
        window.setGeometry(300, 200, 400, 120);
        showActive(window);
        RealInput::moveTo(QPoint(900, 700));
    }

    void click(QWidget *widget) const { RealInput::click(widget->mapToGlobal(widget->rect().center())); }
    bool opened() const
    {
        return awaited([this] { return list.isVisible() && list.isActiveWindow(); });
    }
    // Which window is active then is the window manager's choice.
    bool closed()
    {
        const bool hidden = awaited([this] { return !list.isVisible(); });
        window.activateWindow();
        return hidden && becomesActive(window);
    }
};

} // namespace

// The list under a window manager, with the screen's own pointer and keys.
class TestPathListScreen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!RealInput::available())
            QSKIP("no screen of its own");
    }

    // Picked from with the mouse and with the keys, which are the list's, or left.
    void shown()
    {
        for (int i = 0; i < kFirstShows; ++i) {
            Scene scene;
            for (const QString deed : {"mouse", "keys", "Escape", "elsewhere"}) { // the first show is special
                if (i % 2 == 0)
                    scene.click(&scene.button);
                else
                    scene.button.click();
                QVERIFY2(scene.opened(), qPrintable(deed + QString::number(i)));
                QStringList picked;
                if (deed == "mouse") {
                    picked << "/two";
                    scene.click(scene.list.pathItems().at(1));
                } else if (deed == "keys") {
                    picked << "/one"; // below the one that was picked
                    RealInput::typeKey(Qt::Key_Down);
                    RealInput::typeKey(Qt::Key_Return);
                } else if (deed == "Escape") {
                    RealInput::typeKey(Qt::Key_Escape);
                } else {
                    RealInput::click(scene.window.mapToGlobal(QPoint(390, 10)));
                }
                QVERIFY2(scene.closed(), qPrintable(deed + QString::number(i)));
                QCOMPARE(std::exchange(scene.picked, {}), picked);
            }
        }
    }
};

LUMQT_TEST_MAIN(TestPathListScreen)
#include "tst_pathlist_screen.moc"
