#include "CCMCLogEntry.h"
#include "CTWObject.h"
#include "foundation/FontLookup.h"
#include "foundation/ResourcePath.h"
#include "LumQtVersion.h"
#include "platform/Platform.h"
#include "TestMain.h"
#include "Util.h"

#include <QTemporaryDir>

#include <thread>
#include <tuple>

namespace {

struct Counted : CTWObject<ITWObject>
{
    explicit Counted(int *deaths) : m_deaths(deaths) {}
    Counted(const Counted &other) = default;
    Counted &operator=(const Counted &other) = default;
    ~Counted() override { ++*m_deaths; }
    int *m_deaths;
};

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

class TestUtil : public QObject
{
    Q_OBJECT

private slots:
    // First, for the language is asked once in the life of a process.
    void language()
    {
        const auto system = lumqt::platform::answers().interfaceLanguage;
        int asked = 0;
        QString answer;
        lumqt::platform::answers().interfaceLanguage = [&] {
            ++asked;
            return answer;
        };
        QCOMPARE(GetUILanguage(), QString());
        QCOMPARE(asked, 1);
        // No language: two looks, then the key of no group and the default family.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("has no /font_normal"));
        QCOMPARE(GetFontFamily(1), QString("Segoe UI"));
        QCOMPARE(asked, 3);
        answer = QString("English");
        QCOMPARE(GetUILanguage(), QString("English"));
        answer = QString("German");
        QCOMPARE(GetUILanguage(), QString("English"));
        QCOMPARE(asked, 4);
        lumqt::platform::answers().interfaceLanguage = system;
    }

    void fontFamilies()
    {
        QSettings table(QString("../res/Common/langind.ini"), QSettings::IniFormat);
        const char *keys[] = {"font_light", "font_normal", "font_semibold", "font_bold"};
        for (int weight = 0; weight < 4; ++weight) {
            const QString family = table.value(QString("English/") + keys[weight]).toString();
            QVERIFY(!family.isEmpty());
            QCOMPARE(GetFontFamily(weight), family);
        }
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("has no English/"));
        QCOMPARE(GetFontFamily(7), QString("Segoe UI"));
        QCOMPARE(GetFontFamily(-1), QString("Segoe UI"));
        QCOMPARE(lumqt::uiFont(1, 14).family(), GetFontFamily(1));
        QCOMPARE(lumqt::uiFont(1, 20).pixelSize(), 20);
        QVERIFY(lumqt::uiFont(1, -3).pixelSize() > 0);
    }

    void resourcePath()
    {
        const std::tuple<const char *, const char *, const char *, const char *> rows[] = {
            {"C:/App/bin", "../res/UIConfig.ini", "C:\\App\\res\\UIConfig.ini", "C:/App/res/UIConfig.ini"},
            {"C:/App/bin", "res/a.png", "C:\\App\\res\\a.png", "C:/App/res/a.png"},
            {"C:/App/bin", "../../res/a/b.png", "C:\\App\\res\\a\\b.png", "C:/App/res/a/b.png"},
            {"C:/App/bin", "res/a/../b.png", "C:\\App\\res\\a\\b.png", "C:/App/res/a/b.png"},
            {"C:/binaries/bin", "../res/x", "C:\\aries\\res\\x", "C:/aries/res/x"},
            {"C:/BIN/bin", "../res/x", "C:\\BIN\\res\\x", "C:/BIN/res/x"},
            {"C:/App/bin/", "../res/x", "C:\\App\\res\\x", "C:/App/res/x"},
            {"C:/", "../res/x", "res\\x", "res/x"},
            {"", "../res/x", "res\\x", "res/x"}, // without an application
            {"C:/App/bin", "", "", ""}};
        for (const auto &[folder, name, windows, other] : rows) {
            QCOMPARE(lumqt::resourcePath(folder, name, QString("\\")), QString(windows));
            QCOMPARE(lumqt::resourcePath(folder, name, QString("/")), QString(other));
        }
    }

    void programPaths()
    {
        // The program of this test lies beside res/, so that the shipped file is found.
        QVERIFY(QFile::exists(Util::getResFullPath("../res/UIConfig.ini")));
        QCOMPARE(Util::getLumResFullPath("langind.ini"), Util::getResFullPath("../res/Common/langind.ini"));
        const QString separator = lumqt::platform::pathSeparator();
        const QString folder = QCoreApplication::applicationDirPath().replace('/', separator);
        QCOMPARE(Util::getcurappPath("a/b"), folder + separator + "a/b");
        QCOMPARE(Util::getcurappPath(QString()), QString());
    }

    void chopTailChar()
    {
        const std::tuple<const char *, char, bool, const char *> rows[] = {
            {"", '\\', true, ""},           {"ab", '\\', true, "ab"},      {"a\\", '\\', true, "a"},
            {"a\\\\\\", '\\', true, "a\\"}, {"a\\\\", '\\', false, "a\\"}, {"a//", '/', true, "a/"},
            {"a\\/", '/', true, "a"},       {"\\", '\\', true, ""}};
        for (const auto &[text, tail, also, chopped] : rows)
            QCOMPARE(Util::chopTailChar(text, tail, also), QString(chopped));
    }

    void iniFiles()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath("a.ini");
        QVariant value(42);
        QVERIFY(!Util::readIni("", "k", value, file) && !Util::readIni("g", "", value, file));
        QVERIFY(!Util::readIni("g", "k", value, "") && value == QVariant(42));
        QVERIFY(!Util::readIni("g", "k", value, file) && !value.isValid());
        Util::writeIni("", "k", 1, file);
        Util::writeIni("g", "", 1, file);
        QVERIFY(!QFile::exists(file));
        Util::writeIni("g", "k", "v", file);
        QVERIFY(Util::readIni("g", "k", value, file) && value == QVariant("v"));
        QVERIFY(!Util::readIni("other", "k", value, file));

        const QRegularExpression unreadable("cannot be read");
        QTest::ignoreMessage(QtWarningMsg, unreadable);
        QVERIFY(!Util::readIni("g", "k", value, folder.path()));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot be written"));
        Util::writeIni("g", "k", 1, folder.path());
        QByteArray garbage("[g]\nno line of an ini file\n");
        for (int i = 0; i < 20000; ++i)
            garbage.append(char(i * 7919 >> 3));
        QVERIFY(writeFile(file, garbage));
        QTest::ignoreMessage(QtWarningMsg, unreadable);
        QVERIFY(!Util::readIni("g", "k", value, file));
        Util::writeIni("g", "k", 5, file); // without a complaint: it is written
        QVERIFY(Util::readIni("g", "k", value, file) && value.toInt() == 5);
    }

    void titleColors()
    {
        const QString file = Util::getResFullPath("../res/UIConfig.ini");
        QFile shipped(file);
        QVERIFY(shipped.open(QIODevice::ReadOnly));
        const QByteArray content = shipped.readAll();
        shipped.close();

        bool found = false;
        QCOMPARE(Util::GetWindowTitleBgColor(), QColor(34, 42, 62));
        QVERIFY(Util::GetWindowTitleTextColor().isValid());
        QVERIFY(Util::GetWindowTitleBottomLineClr(found).isValid() && found);

        // Nothing is kept: the next call reads the file as it is then.
        QVERIFY(writeFile(file, "[window]\ntitle_bgcolor=no colour\ntitle_textcolor=#010203\n"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is no colour"));
        QVERIFY(!Util::GetWindowTitleBgColor().isValid());
        QCOMPARE(Util::GetWindowTitleTextColor(), QColor(1, 2, 3));
        QVERIFY(!Util::GetWindowTitleBottomLineClr(found).isValid() && !found);
        QVERIFY(writeFile(file, content));
    }

    void addresses()
    {
        for (const char *good : {"a.b+c%d@ex-ample.org", "A@EXAMPLE.COM", "a@b.info"})
            QVERIFY2(Util::IsMail(good), good);
        for (const char *bad : {"a@b.house", "a@b.c", "a@", "@b.org", "x a@b.org", ""})
            QVERIFY2(!Util::IsMail(bad), bad);
        for (const char *good : {"0.0.0.0", "255.255.255.255", "1.2.3.4", "01.02.03.04", "199.249.250.100"})
            QVERIFY2(Util::IsIPAddress(good), good);
        for (const char *bad :
             {"256.1.1.1", "1.2.3", "1.2.3.4.5", "001.2.3.4", "099.2.3.4", "1.2.3.4 ", "-1.2.3.4", ""})
            QVERIFY2(!Util::IsIPAddress(bad), bad);
    }

    void countedObject()
    {
        int deaths = 0;
        auto *object = new Counted(&deaths);
        QCOMPARE(object->AddRef(), 2L);
        QCOMPARE(object->AddRef(), 3L);
        auto *copy = new Counted(*object); // a copy has the owners of its source
        QCOMPARE(copy->Release(), 2L);
        *copy = *object;
        QCOMPARE(copy->Release(), 2L);
        QCOMPARE(copy->Release(), 1L);
        QVERIFY(deaths == 0 && copy->Release() == 0 && deaths == 1);
        while (object->Release() > 0) {
        }
        QCOMPARE(deaths, 2);
    }

    void countedObjectBetweenThreads()
    {
        int deaths = 0;
        auto *object = new Counted(&deaths);
        std::atomic<int> started{0};
        std::thread owners[2];
        for (std::thread &owner : owners) {
            owner = std::thread([&started, object] {
                ++started;
                while (started < 2) { // both at once, or there is nothing to see
                }
                for (int i = 0; i < 500000; ++i) {
                    object->AddRef();
                    object->Release();
                }
            });
        }
        for (std::thread &owner : owners)
            owner.join();
        QVERIFY(deaths == 0 && object->Release() == 0 && deaths == 1);
    }

    void logEntry()
    {
        int context = 0;
        const CCMCLogEntry fits(QByteArray(199, 'x').constData(), &context);
        const CCMCLogEntry cut(QByteArray(5000, 'y').constData(), nullptr);
        CCMCLogEntry copy(nullptr, nullptr);
        QVERIFY(qstrlen(fits.name()) == 199 && qstrlen(cut.name()) == 199 && qstrlen(copy.name()) == 0);
        copy = fits;
        QCOMPARE(copy.name(), fits.name());
        QVERIFY(copy.context() == &context && fits.context() == &context);
    }

    void version()
    {
        QCOMPARE(QStringLiteral(LUMQT_VERSION_STR), QString("%1.%2.%3")
                                                        .arg(LUMQT_VERSION >> 16)
                                                        .arg(LUMQT_VERSION >> 8 & 0xff)
                                                        .arg(LUMQT_VERSION & 0xff));
    }
};

LUMQT_TEST_MAIN(TestUtil)
#include "tst_util.moc"
