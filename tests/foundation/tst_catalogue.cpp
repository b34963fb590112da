#include "foundation/Catalogue.h"
#include "TestMain.h"
#include "Util.h"

#include <QDataStream>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTranslator>

#include <functional>
#include <memory>
#include <tuple>

namespace {

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

// What may befall a file: bytes turned, set, lost, come in or moved, or the end lost.
QByteArray damaged(QByteArray content, QRandomGenerator &random)
{
    const int times = 1 + int(random.bounded(4));
    for (int i = 0; i < times && !content.isEmpty(); ++i) {
        const int at = int(random.bounded(content.size()));
        const int length = 1 + int(random.bounded(8));
        switch (random.bounded(6)) {
        case 0:
            content[at] = char(content[at] ^ (1 << random.bounded(8)));
            break;
        case 1:
            content[at] = char(random.bounded(2) ? 0 : 0xff);
            break;
        case 2:
            content.remove(at, length);
            break;
        case 3:
            content.insert(at, QByteArray(length, char(random.bounded(256))));
            break;
        case 4:
            content.replace(at, length, content.mid(int(random.bounded(content.size())), length));
            break;
        default:
            content.truncate(at);
        }
    }
    return content;
}

} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
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
            {content, "0" + sum.mid(1, 62) + "00", false},
            {content, sum.left(63), false},
            {content, sum + '0', false},
            {content, "", false},
            {content, sum + QByteArray(5000, ' '), false}};
        for (const auto &[held, words, fits] : files) {
            QVERIFY(writeFile(file, held) && writeFile(file + ".sha256", words));
            if (!fits)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("has not the checksum"));
            QCOMPARE(bool(std::unique_ptr<QTranslator>(Util::LoadCatalogue(file))), fits);
        }
    }

    // A file that is damaged in any way is not loaded, or can be read: the texts may be wrong then, no more.
    void damageDoesNotCrash()
    {
        QRandomGenerator random(20260725);
        int taken = 0;
        for (const QByteArray &whole : {catalogue(sections()), shipped()}) {
            for (int i = 0; i < 1000; ++i)
                taken += lookUp(damaged(whole, random)) ? 1 : 0;
        }
        QVERIFY2(taken > 100 && taken < 1900, qPrintable(QString::number(taken)));
    }
};

int main(int argc, char *argv[])
{
    installedWithoutApplication = Util::InstallCatalogue();
    return runTest<TestCatalogue>(argc, argv);
}
#include "tst_catalogue.moc"
