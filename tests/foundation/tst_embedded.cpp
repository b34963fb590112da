#include "Await.h"
#include "CBPImage.h"
#include "CBPSearchEdit.h"
#include "CBPTheme.h"
#include "CBPUISyncWaiter.h"
#include "foundation/EmbeddedRes.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "Pixels.h"
#include "TestMain.h"
#include "Util.h"

#include <QDirIterator>
#include <QLabel>
#include <QMovie>
#include <QToolButton>

using lumqt::fileToRead;

namespace {

const QString kPicture = QStringLiteral("../res/close_normal.png");

QByteArray contentOf(const QString &file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

// A folder `res` beside the program for a while, with nothing in it.
class ResFolder
{
public:
    ResFolder() { m_made = QDir().mkpath(folder()); }
    ~ResFolder() { QDir(folder()).removeRecursively(); }
    ResFolder(const ResFolder &) = delete;
    ResFolder &operator=(const ResFolder &) = delete;
    bool isMade() const { return m_made; }

private:
    static QString folder() { return Util::getResFullPath(QStringLiteral("../res/")); }
    bool m_made;
};

} // namespace

// This program lies in a folder that has no folder `res` beside it.
class TestEmbedded : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { CBPTheme::apply(QStringLiteral("light")); }

    void copyIsWhole()
    {
        const QDir source(QStringLiteral(LUMQT_RES));
        int count = 0;
        QDirIterator files(source.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            const QString name = source.relativeFilePath(file);
            if (name.startsWith(QLatin1String("Common/langind")))
                continue;
            QVERIFY2(contentOf(QStringLiteral(":/lumqtlib/res/") + name) == contentOf(file),
                     qPrintable(name));
            ++count;
        }
        QVERIFY(count > 100);
        QCOMPARE(contentOf(QStringLiteral(":/lumqtlib/res/Common/langind.ini")),
                 contentOf(source.filePath(QStringLiteral("Common/" LUMQT_FONT_TABLE))));
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("read");
        const QString copy = QStringLiteral(":/lumqtlib/res/");
        const QString own = Util::getResFullPath(QStringLiteral("../res/"));
        QTest::newRow("as Util has it") << Util::getResFullPath(kPicture) << copy + "close_normal.png";
        QTest::newRow("with slashes")
            << QDir::fromNativeSeparators(own) + "dark/a.png" << copy + "dark/a.png";
        QTest::newRow("joined twice") << own + "loading//0.png" << copy + "loading/0.png";
        QTest::newRow("from the current folder") << kPicture << copy + "close_normal.png";
        QTest::newRow("not in the copy") << own + "none.png" << copy + "none.png";
        QTest::newRow("leaves the folder") << own + "../other.png" << own + "../other.png";
        QTest::newRow("the application's")
            << QStringLiteral("../pictures/a.png") << QStringLiteral("../pictures/a.png");
        QTest::newRow("a resource") << QStringLiteral(":/a.png") << QStringLiteral(":/a.png");
        QTest::newRow("none") << QString() << QString();
    }

    void names()
    {
        QFETCH(QString, name);
        QTEST(fileToRead(name), "read");
    }

    // A folder that is there counts as a whole, whatever it has.
    void folderTakesItsPlace()
    {
        const QString path = Util::getResFullPath(kPicture);
        QVERIFY(!lumqt::loadPixmap(path, 1).isNull());
        {
            const ResFolder folder;
            QVERIFY(folder.isMade());
            AWAIT(fileToRead(path) == path);
            QCOMPARE(fileToRead(kPicture), kPicture);
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("close_normal.png is missing")));
            QVERIFY(lumqt::loadPixmap(path, 1).isNull());
        }
        AWAIT(!lumqt::loadPixmap(path, 1).isNull());
    }

    void densePicturesAreFound()
    {
        const QString path = Util::getResFullPath(kPicture);
        const QPixmap plain = lumqt::loadPixmap(path, 1);
        QCOMPARE(lumqt::loadPixmap(path, 2).size(), plain.size() * 2);
        QCOMPARE(lumqt::loadPixmap(path, 2).toImage(),
                 lumqt::loadPixmap(QStringLiteral(LUMQT_RES "/close_normal.png"), 2).toImage());
        QCOMPARE(CBPImage(Util::getResFullPath(QStringLiteral("../res/close_normal"))).size(), plain.size());
    }

    void themesHaveTheirPictures()
    {
        const QImage light = lumqt::loadPixmap(kPicture, 1).toImage();
        CBPTheme::apply(QStringLiteral("dark"));
        QCOMPARE(lumqt::themePicture(kPicture), QStringLiteral(":/lumqtlib/res/dark/close_normal.png"));
        QVERIFY(lumqt::loadPixmap(kPicture, 1).toImage() != light);
        CBPTheme::apply(QStringLiteral("light")); // and have them at once, however often they are painted
        QCOMPARE(lumqt::paintedPixmap(kPicture, 1).toImage(), light);
        QCOMPARE(lumqt::paintedPixmap(kPicture, 1).toImage(), light);
    }

    void settingsAreRead()
    {
        QVERIFY(Util::GetWindowTitleBgColor().isValid());
        QVariant value;
        QVERIFY(Util::readIni("window", "title_bgcolor", value, Util::getResFullPath("../res/UIConfig.ini")));
        QVERIFY(GetFontFamily(1) != QString()); // warns, and the test fails, where there is no table
    }

    // Those that hand the name to Qt instead of loading the picture.
    void widgetsThatReadByThemselves()
    {
        CBPUISyncWaiter waiter(QString{});
        const auto labels = waiter.findChildren<QLabel *>();
        const bool turns = std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
            return label->movie() && label->movie()->isValid();
        });
        QVERIFY(turns);
        for (const char *theme : {"light", "dark"}) {
            CBPTheme::apply(QLatin1String(theme));
            CBPSearchEdit edit(nullptr);
            edit.resize(200, 30);
            auto *search = edit.findChild<QToolButton *>(QStringLiteral("btnSearch"));
            QVERIFY(search);
            edit.ensurePolished();
            const QImage image = drawn(*search);
            QVERIFY2(hasInk(image), "no magnifier");
        }
    }

private:
    static bool hasInk(const QImage &image)
    {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) > 128)
                    return true;
            }
        }
        return false;
    }
};

LUMQT_TEST_MAIN(TestEmbedded)
#include "tst_embedded.moc"
