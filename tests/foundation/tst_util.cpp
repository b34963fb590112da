#include "CCMCLogEntry.h"
#include "CTWObject.h"
#include "foundation/Catalogue.h"
#include "foundation/FontLookup.h"
#include "foundation/ResourcePath.h"
#include "Later.h"
#include "platform/Platform.h"
#include "TestMain.h"
#include "Util.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QTemporaryDir>
#include <QTranslator>

#include <functional>
#include <memory>
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

bool installedWithoutApplication = true;

using Sections = QVector<QPair<quint8, QByteArray>>;
constexpr int kLanguage = 0; // the indices of the sections below
constexpr int kHashes = 1;
constexpr int kMessages = 2;
constexpr int kContexts = 3;

QByteArray packed(const std::function<void(QDataStream &)> &write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    write(stream);
    return bytes;
}

// All that the format has: two messages, one of them with plural forms, and the table of contexts, one list
// long.
Sections sections()
{
    const auto message = [](const QStringList &texts, const QByteArray &source) {
        return packed([&](QDataStream &stream) {
            for (const QString &text : texts)
                stream << quint8(3) << text;
            stream << quint8(8) << QByteArray("") << quint8(6) << source << quint8(7) << QByteArray("Talk")
                   << quint8(1);
        });
    };
    const QByteArray first = message({"Hallo"}, "hello");
    const QByteArray second = message({"%n Datei", "%n Dateien"}, "%n file(s)"); // of the higher hash
    // As Qt hashes the two, and where their messages begin.
    const QByteArray hashes = packed([&](QDataStream &stream) {
        stream << quint32(0x6ec32f) << quint32(0) << quint32(0xd00bf39) << quint32(first.size());
    });
    // One list of contexts, which begins two bytes behind the table.
    const QByteArray contexts("\0\1\0\1\0\0\4Talk\0", 12);
    return {{0xa7, "de"}, {0x42, hashes}, {0x69, first + second}, {0x2f, contexts}, {0x88, "\1\1"}};
}

QByteArray catalogue(const Sections &sections)
{
    QByteArray bytes = QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
    for (const auto &section : sections)
        bytes += packed([&](QDataStream &stream) { stream << section.first << section.second; });
    return bytes;
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray shipped()
{
    QFile file(Util::getResFullPath("../res/lumqtlib_en.qm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Asks Qt's translator for texts of a catalogue, and whether it is taken at all.
bool lookUp(const QByteArray &content)
{
    const std::unique_ptr<QTranslator> translator(lumqt::readCatalogue(content, nullptr));
    for (const char *context : {"Talk", "CMsgBox", "x"}) {
        for (const char *text : {"hello", "%n file(s)", "{caption}Message", ""}) {
            for (int n = -1; translator && n < 3; ++n)
                translator->translate(context, text, nullptr, n);
        }
    }
    return bool(translator);
}

} // namespace

class TestUtil : public QObject
{
    Q_OBJECT

private slots:
    // In one, for the language is asked once in the life of a process.
    void languageAndFonts()
    {
        auto &ask = lumqt::platform::answers().interfaceLanguage;
        const auto restore = restoring(ask);
        QStringList answers{"German", "English", QString(), QString(), QString()}; // the last comes first
        ask = [&] { return answers.takeLast(); };
        QCOMPARE(GetUILanguage(), QString());
        // No language: two looks, then the key of no group and the default family.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("has no /font_normal"));
        QCOMPARE(GetFontFamily(1), QString("Segoe UI"));
        for (int i = 0; i < 2; ++i)
            QCOMPARE(GetUILanguage(), QString("English"));
        QCOMPARE(answers.size(), 1);

        QSettings table(QString("../res/Common/langind.ini"), QSettings::IniFormat);
        const char *keys[] = {"font_light", "font_normal", "font_semibold", "font_bold"};
        for (int weight = 0; weight < 4; ++weight) {
            const QString family = table.value(QString("English/") + keys[weight]).toString();
            QVERIFY(!family.isEmpty());
            QCOMPARE(GetFontFamily(weight), family);
            QCOMPARE(lumqt::uiFont(weight, 14).family(), family);
        }
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("has no English/")); // told once
        for (const int none : {4, -1})
            QCOMPARE(GetFontFamily(none), QString("Segoe UI"));
        for (const int pixels : {20, 1, -3})
            QCOMPARE(lumqt::uiFont(1, pixels).pixelSize(), qMax(1, pixels));
    }

    void resourcePath()
    {
        const std::tuple<const char *, const char *, QString> rows[] = {
            {"C:/App/bin", "../res/UIConfig.ini", "C:/App/res/UIConfig.ini"},
            {"C:/App/bin", "res/a.png", "C:/App/res/a.png"},
            {"C:/App/bin", "../../res/a/../b.png", "C:/App/res/a/b.png"},
            {"C:/binaries/bin", "../res/x", "C:/aries/res/x"},
            {"C:/BIN/bin", "../res/x", "C:/BIN/res/x"},
            {"C:/App/bin/", "../res/x", "C:/App/res/x"},
            {"C:/", "../res/x", "res/x"},
            {"", "../res/x", "res/x"}, // without an application
            {"C:/App/bin", "", ""}};
        for (const QString separator : {"/", "\\"}) {
            for (const auto &[folder, name, expected] : rows)
                QCOMPARE(lumqt::resourcePath(folder, name, separator),
                         QString(expected).replace('/', separator));
        }
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
        const auto restore = restoringFile(file);

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
    }

    void addresses()
    {
        const auto check = [](bool (*matches)(const QString &), const QStringList &good,
                              const QStringList &bad) {
            for (const QString &text : good + bad)
                QVERIFY2(matches(text) == good.contains(text), qPrintable(text));
        };
        check(&Util::IsMail, {"a.b+c%d@ex-ample.org", "A@EXAMPLE.COM", "a@b.info"},
              {"a@b.house", "a@b.c", "a@", "@b.org", "x a@b.org", ""});
        check(&Util::IsIPAddress, {"0.0.0.0", "255.255.255.255", "1.2.3.4", "01.02.03.04", "199.249.250.100"},
              {"256.1.1.1", "1.2.3", "1.2.3.4.5", "001.2.3.4", "099.2.3.4", "1.2.3.4 ", "-1.2.3.4", ""});
    }

    // Counted by two threads at once, too.
    void countedObject()
    {
        int deaths = 0;
        auto *object = new Counted(&deaths);
        QCOMPARE(object->AddRef(), 2L);
        QCOMPARE(object->AddRef(), 3L);
        auto *copy = new Counted(*object); // a copy has the owners of its source
        QCOMPARE(copy->Release(), 2L);
        *copy = *object;
        for (const long left : {2L, 1L}) {
            QCOMPARE(copy->Release(), left);
            QCOMPARE(object->Release(), left);
        }
        QVERIFY(deaths == 0 && copy->Release() == 0 && deaths == 1);
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
        QVERIFY(deaths == 1 && object->Release() == 0 && deaths == 2);
    }

    void logEntry()
    {
        int context = 0;
        const CCMCLogEntry fits(QByteArray(199, 'x').constData(), &context);
        CCMCLogEntry copy(QByteArray(5000, 'y').constData(), nullptr);
        QVERIFY(qstrlen(fits.name()) == 199 && qstrlen(copy.name()) == 199 && !copy.context());
        copy = fits;
        QVERIFY(qstrcmp(copy.name(), fits.name()) == 0 && copy.context() == &context);
        QVERIFY(qstrlen(CCMCLogEntry(nullptr, nullptr).name()) == 0);
    }

    // --------------------------------------------------------------------------------------------------------
    // catalogues

    void installsTheLibrarysOwn()
    {
        const auto title = [] { return QCoreApplication::translate("CMsgBox", "{caption}Message"); };
        QVERIFY(!installedWithoutApplication);
        for (const char *unknown : {"", "_", "xx", "../en"}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no catalogue for the language"));
            QVERIFY(!Util::InstallCatalogue(unknown));
        }
        QCOMPARE(title(), QString("{caption}Message"));
        for (const char *language : {"en-GB", "en"})
            QVERIFY(Util::InstallCatalogue(language));
        QVERIFY(Util::InstallCatalogue());
        QCOMPARE(title(), QString("Message"));
        const auto installed = qApp->findChildren<QTranslator *>();
        QCOMPARE(installed.size(), 1);
        delete installed.first();
        QCOMPARE(title(), QString("{caption}Message"));
    }

    void readsWhatQtWrites()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath("a.qm");
        QVERIFY(writeFile(file, catalogue(sections())));
        QObject parent;
        const QTranslator *german = Util::LoadCatalogue(file, &parent);
        QVERIFY(german && german->parent() == &parent);
        QVERIFY(writeFile(file, "changed")); // is no business of what was loaded
        QCOMPARE(german->translate("Talk", "hello"), QString("Hallo"));
        QCOMPARE(german->translate("Talk", "%n file(s)", nullptr, 1), QString("%n Datei"));
        QCOMPARE(german->translate("Talk", "%n file(s)", nullptr, 2), QString("%n Dateien"));
        QVERIFY(german->translate("Other", "hello").isEmpty());
        for (const char *missing : {"a.qm", "none.qm", "."}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is not used"));
            QVERIFY(!Util::LoadCatalogue(folder.filePath(missing)));
        }
    }

    // Each by itself crashes Qt's own translator, hides a part of the file from it, or makes it look for
    // others.
    void soundness()
    {
        using Damage = std::function<void(Sections &)>;
        const auto put = [](int section, int at, const char *hex, int over = -1) -> Damage {
            const QByteArray bytes = QByteArray::fromHex(hex);
            return [=](Sections &all) {
                QByteArray &content = all[section].second;
                content.replace(at < 0 ? content.size() + at : at, over < 0 ? bytes.size() : over, bytes);
            };
        };
        const auto add = [](quint8 kind) -> Damage {
            return [=](Sections &all) { all.append({kind, "\0\0"}); };
        };
        const auto drop = [](int section) -> Damage { return [=](Sections &all) { all.remove(section); }; };
        const std::tuple<const char *, Damage, bool> cases[] = {
            {"as it was", [](Sections &) {}, true},
            {"another text", put(kMessages, 5, "0041"), true},
            {"an empty plural form", put(kMessages, -25, "03ffffffff", 0), true},
            {"a part of old files", put(kMessages, -1, "0501020304", 0), true},
            {"no contexts", drop(kContexts), true},
            {"a list without an end", put(kContexts, -1, "f0"), true},
            {"longer than the section", put(kMessages, 1, "7ffffff0"), false},
            {"of a negative length", put(kMessages, 1, "fffffff0"), false},
            {"an unknown part", put(kMessages, 0, "09"), false},
            {"a message without an end", put(kMessages, -1, "03"), false},
            {"a hash into a message", put(kHashes, 4, "00000001"), false},
            {"a hash to nowhere", put(kHashes, 12, "70000000"), false},
            {"hashes that fall", put(kHashes, 0, "ffffffff"), false},
            {"half a hash", put(kHashes, -4, "", 4), false},
            {"no hashes", drop(kHashes), false},
            {"no messages", drop(kMessages), false},
            {"no lists of contexts", put(kContexts, 0, "0000"), false},
            {"more lists than there is", put(kContexts, 0, "7fff"), false},
            {"a list to nowhere", put(kContexts, 2, "7fff"), false},
            {"an empty section", put(kLanguage, 0, "", 2), false},
            {"a section twice", [](Sections &all) { all.append(all[kLanguage]); }, false},
            {"an unknown section", add(0x11), false},
            {"other files", add(0x96), false}};
        for (const auto &[name, damage, sound] : cases) {
            Sections all = sections();
            damage(all);
            QVERIFY2(lookUp(catalogue(all)) == sound, name);
        }
        const QByteArray whole = catalogue(sections());
        QVERIFY(!lookUp(whole + '\0') && lookUp(shipped()));
        // Two cuts leave whole sections, and are for a checksum to find.
        int cuts = 0;
        for (int size = 0; size < whole.size(); ++size)
            cuts += lookUp(whole.left(size)) ? 1 : 0;
        QCOMPARE(cuts, 2);
    }

    void checksums()
    {
        const QByteArray content = catalogue(sections());
        const QByteArray sum = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
        QTemporaryDir folder;
        const QString file = folder.filePath("a.qm");
        const std::tuple<QByteArray, QByteArray, bool> files[] = {
            {content, sum + "  a.qm\n", true},
            {content, "SHA256 hash of a.qm:\r\n" + sum.toUpper() + "\r\ndone", true},
            {QByteArray(content).replace("H", "h"), sum, false},
            {content, sum.left(63), false},
            {content, sum + '0', false},
            {content, "", false},
            {content, sum + QByteArray(4096 - 64, ' '), true},
            {content, sum + QByteArray(4097 - 64, ' '), false}};
        for (const auto &[held, words, fits] : files) {
            QVERIFY(writeFile(file, held) && writeFile(file + ".sha256", words));
            if (!fits)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("has not the checksum"));
            QCOMPARE(bool(std::unique_ptr<QTranslator>(Util::LoadCatalogue(file))), fits);
        }
    }

    // A file that is damaged anywhere is not loaded, or can be read: the texts may be wrong then, no more.
    void damageDoesNotCrash()
    {
        const QByteArray whole = catalogue(sections());
        int taken = 0;
        for (int at = 0; at < whole.size(); ++at) {
            for (const char wrong : {'\0', '\1', '\x7f', '\xff'}) {
                for (const int over : {0, 1, 4})
                    taken += lookUp(QByteArray(whole).replace(at, over, &wrong, 1)) ? 1 : 0;
            }
        }
        QVERIFY2(taken > 100 && taken < 12 * whole.size() / 2, QByteArray::number(taken));
    }
};

int main(int argc, char *argv[])
{
    installedWithoutApplication = Util::InstallCatalogue();
    return runTest<TestUtil>(argc, argv);
}
#include "tst_util.moc"
