#include "foundation/Catalogue.h"
#include "TestMain.h"
#include "Util.h"

#include <QDataStream>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTranslator>

#include <functional>
#include <memory>

namespace {

bool installedWithoutApplication = true;

using Sections = QVector<QPair<quint8, QByteArray>>;
constexpr int kLanguage = 0; // the indices of the sections below
constexpr int kHashes = 1;
constexpr int kMessages = 2;
constexpr int kContexts = 3;

quint32 hashOf(const QByteArray &text)
{
    quint32 hash = 0;
    for (const char character : text) {
        hash = (hash << 4) + quint8(character);
        hash ^= (hash & 0xf0000000) >> 24;
        hash &= 0x0fffffff;
    }
    return hash;
}

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
    const QByteArray hello("hello");
    const QByteArray files("%n file(s)"); // of the higher hash
    QByteArray messages = packed([&](QDataStream &stream) {
        stream << quint8(3) << QStringLiteral("Hallo") << quint8(8) << QByteArray("") << quint8(6) << hello
               << quint8(7) << QByteArray("Talk") << quint8(1);
    });
    const int second = messages.size();
    messages += packed([&](QDataStream &stream) {
        stream << quint8(3) << QStringLiteral("%n Datei") << quint8(3) << QStringLiteral("%n Dateien")
               << quint8(6) << files << quint8(7) << QByteArray("Talk") << quint8(1);
    });
    const QByteArray hashes = packed([&](QDataStream &stream) {
        stream << hashOf(hello) << quint32(0) << hashOf(files) << quint32(second);
    });
    const QByteArray contexts = packed([](QDataStream &stream) {
        stream << quint16(1) << quint16(1) << quint16(0); // one list, which begins two bytes behind the table
    });
    return {{0xa7, "de"},
            {0x42, hashes},
            {0x69, messages},
            {0x2f, contexts + QByteArray("\x04Talk\0", 6)},
            {0x88, QByteArray("\x01\x01", 2)}};
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
    QFile::remove(path); // some file systems wait for the disk where a file is written over
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray shipped()
{
    QFile file(Util::getResFullPath(QStringLiteral("../res/lumqtlib_en.qm")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Asks Qt's translator for texts of a catalogue, and whether it takes it at all.
bool lookUp(const QString &file, const QByteArray &content)
{
    const std::unique_ptr<QTranslator> translator(writeFile(file, content) ? Util::LoadCatalogue(file)
                                                                           : nullptr);
    for (const char *context : {"Talk", "CMsgBox", "CBPPopWnd", "x"}) {
        for (const char *text : {"hello", "%n file(s)", "{caption}Message", "Cancel", ""}) {
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
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("no catalogue for the language")));
            QVERIFY(!Util::InstallCatalogue(QString::fromLatin1(unknown)));
        }
        QCOMPARE(title(), QStringLiteral("{caption}Message"));
        for (const char *language : {"en-GB", "en"})
            QVERIFY(Util::InstallCatalogue(QString::fromLatin1(language)));
        QVERIFY(Util::InstallCatalogue());
        QCOMPARE(title(), QStringLiteral("Message"));
        const auto installed = qApp->findChildren<QTranslator *>();
        QCOMPARE(installed.size(), 1);
        delete installed.first();
        QCOMPARE(title(), QStringLiteral("{caption}Message"));
    }

    void readsWhatQtWrites()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.qm"));
        QVERIFY(writeFile(file, catalogue(sections())));
        QObject parent;
        const QTranslator *german = Util::LoadCatalogue(file, &parent);
        QVERIFY(german && german->parent() == &parent);
        QVERIFY(writeFile(file, "changed")); // is no business of what was loaded
        QCOMPARE(german->translate("Talk", "hello"), QStringLiteral("Hallo"));
        QCOMPARE(german->translate("Talk", "%n file(s)", nullptr, 1), QStringLiteral("%n Datei"));
        QCOMPARE(german->translate("Talk", "%n file(s)", nullptr, 2), QStringLiteral("%n Dateien"));
        QVERIFY(german->translate("Other", "hello").isEmpty());
        for (const char *missing : {"a.qm", "none.qm", "."}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is not used")));
            QVERIFY(!Util::LoadCatalogue(folder.filePath(QString::fromLatin1(missing))));
        }
    }

    // Each by itself crashes Qt's own translator, hides a part of the file from it, or makes it look for
    // others.
    void soundness()
    {
        const auto patch = [](int section, int at, const char *hex) {
            return [=](Sections &all) {
                const QByteArray bytes = QByteArray::fromHex(hex);
                all[section].second.replace(at < 0 ? all[section].second.size() + at : at, bytes.size(),
                                            bytes);
            };
        };
        const struct
        {
            const char *name;
            std::function<void(Sections &)> damage;
            bool sound;
        } cases[] = {
            {"as it was", [](Sections &) {}, true},
            {"another text", patch(kMessages, 5, "0041"), true},
            {"an empty plural form",
             [](Sections &all) {
                 all[kMessages].second.insert(all[kMessages].second.size() - 25, "\3\xff\xff\xff\xff");
             },
             true},
            {"no contexts", [](Sections &all) { all.remove(kContexts); }, true},
            {"longer than the section", patch(kMessages, 1, "7ffffff0"), false},
            {"of a negative length", patch(kMessages, 1, "fffffff0"), false},
            {"of half a character", patch(kMessages, 1, "00000009"), false},
            {"an unknown part", patch(kMessages, 0, "09"), false},
            {"a message without an end", patch(kMessages, -1, "03"), false},
            {"a hash into a message", patch(kHashes, 4, "00000001"), false},
            {"a hash to nowhere", patch(kHashes, 12, "70000000"), false},
            {"hashes that fall", patch(kHashes, 0, "ffffffff"), false},
            {"half a hash", [](Sections &all) { all[kHashes].second.chop(4); }, false},
            {"no hashes", [](Sections &all) { all.remove(kHashes); }, false},
            {"no messages", [](Sections &all) { all.remove(kMessages); }, false},
            {"no lists of contexts", patch(kContexts, 0, "0000"), false},
            {"more lists than there is", patch(kContexts, 0, "7fff"), false},
            {"a list to nowhere", patch(kContexts, 2, "7fff"), false},
            {"a list without an end", patch(kContexts, -1, "f0"), true},
            {"a part of old files",
             [](Sections &all) {
                 all[kMessages].second.insert(all[kMessages].second.size() - 1, "\5\1\2\3\4");
             },
             true},
            {"a section twice", [](Sections &all) { all.append(all[kHashes]); }, false},
            {"an empty section", patch(kLanguage, 0, ""), true},
            {"an unknown section",
             [](Sections &all) {
                 all.append({0x11, "x"});
             },
             false},
            {"other files",
             [](Sections &all) {
                 all.append({0x96, QByteArray(4, '\0')});
             },
             false},
        };
        QTemporaryDir folder;
        for (const auto &one : cases) {
            Sections all = sections();
            one.damage(all);
            const QByteArray content = catalogue(all);
            QVERIFY2(lumqt::isSoundCatalogue(content) == one.sound, one.name);
            if (one.sound)
                lookUp(folder.filePath(QStringLiteral("a.qm")), content);
        }
        const QByteArray whole = catalogue(sections());
        QVERIFY(!lumqt::isSoundCatalogue(whole + '\0'));
        QVERIFY(lumqt::isSoundCatalogue(shipped()));
        // Two cuts leave whole sections, and are for a checksum to find.
        int cuts = 0;
        for (int size = 0; size < whole.size(); ++size)
            cuts += lumqt::isSoundCatalogue(whole.left(size)) ? 1 : 0;
        QCOMPARE(cuts, 2);
    }

    void checksums()
    {
        const QByteArray content = catalogue(sections());
        const QByteArray sum = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.qm"));
        QVERIFY(writeFile(file, content));
        const QPair<QByteArray, bool> files[] = {
            {sum + "  a.qm\n", true},
            {"SHA256 hash of a.qm:\r\n" + sum.toUpper() + "\r\ndone", true},
            {"0" + sum.mid(1, 62) + "00", false},
            {sum.left(63), false},
            {sum + '0', false},
            {QByteArray(), false},
            {sum + QByteArray(5000, ' '), false},
        };
        for (const auto &one : files) {
            QVERIFY(writeFile(file + QLatin1String(".sha256"), one.first));
            if (!one.second)
                QTest::ignoreMessage(QtWarningMsg,
                                     QRegularExpression(QStringLiteral("has not the checksum")));
            QCOMPARE(bool(std::unique_ptr<QTranslator>(Util::LoadCatalogue(file))), one.second);
        }
    }

    // A file that is damaged in any way is not loaded, or can be read: the texts may be wrong then, no more.
    void damageDoesNotCrash()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("lumqtlib=false"));
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.qm"));
        const QString told = folder.filePath(QStringLiteral("told.qm"));
        QRandomGenerator random(20260725);
        int loaded = 0;
        for (const QByteArray &whole : {catalogue(sections()), shipped()}) {
            const QByteArray sum = QCryptographicHash::hash(whole, QCryptographicHash::Sha256).toHex();
            QVERIFY(writeFile(told + QLatin1String(".sha256"), sum));
            for (int i = 0; i < 400; ++i) {
                const QByteArray content = damaged(whole, random);
                loaded += lookUp(file, content) ? 1 : 0;
                QVERIFY(writeFile(told, content));
                QCOMPARE(bool(std::unique_ptr<QTranslator>(Util::LoadCatalogue(told))), content == whole);
            }
        }
        QVERIFY2(loaded > 50 && loaded < 750, qPrintable(QString::number(loaded)));
        QLoggingCategory::setFilterRules(QString());
    }
};

int main(int argc, char *argv[])
{
    installedWithoutApplication = Util::InstallCatalogue();
    return runTest<TestCatalogue>(argc, argv);
}
#include "tst_catalogue.moc"
