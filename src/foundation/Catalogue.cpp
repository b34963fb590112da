#include "foundation/Catalogue.h"

#include "foundation/Log.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QtEndian>
#include <QTranslator>

#include <algorithm>
#include <memory>
#include <vector>

namespace lumqt {

namespace {

const char kOwnCatalogue[] = ":/lumqtlib/translations/lumqtlib_%1.qm";
const char kChecksumSuffix[] = ".sha256";
constexpr int kLongestChecksumFile = 4096;     // bytes: some tools write more than a line
constexpr qint64 kLongestCatalogue = 64 << 20; // bytes; that of Qt itself has a quarter of a million
constexpr quint32 kNullText = 0xffffffff;      // the length of a plural form that was left empty
constexpr int kBucket = sizeof(quint16);       // of the table of contexts
constexpr int kZerosBehind = 256;              // bytes, see areSoundContexts()
constexpr char kMagic[] = "\x3c\xb8\x64\x18\xca\xef\x9c\x95\xcd\x21\x1c\xbf\x60\xa1\xbd\xdd";

// What Qt 5 and 6 read. A file that asks for further files (0x96) is none that could be checked as a whole.
enum Section : quint8 {
    Contexts = 0x2f,
    Hashes = 0x42,
    Messages = 0x69,
    NumerusRules = 0x88,
    Language = 0xa7
};
enum Part : quint8 { End = 1, Translation = 3, HashAgain = 5, SourceText = 6, Context = 7, Comment = 8 };

// Reads from the front of `bytes`, and never beyond their end.
class Reader
{
public:
    explicit Reader(const QByteArray &bytes) : m_bytes(bytes) {}

    bool atEnd() const { return m_at == m_bytes.size(); }
    int position() const { return m_at; }

    template <class Number> bool read(Number &number)
    {
        if (m_bytes.size() - m_at < int(sizeof(Number)))
            return false;
        number = qFromBigEndian<Number>(m_bytes.constData() + m_at);
        m_at += int(sizeof(Number));
        return true;
    }

    bool skip(quint32 size)
    {
        if (quint32(m_bytes.size() - m_at) < size)
            return false;
        m_at += int(size);
        return true;
    }

private:
    const QByteArray m_bytes;
    int m_at = 0;
};

// Finds the sections of a catalogue, which fill it: one of a kind at most.
bool readSections(const QByteArray &content, QMap<quint8, QByteArray> &sections)
{
    Reader reader(content);
    if (!content.startsWith(kMagic) || !reader.skip(quint32(qstrlen(kMagic))))
        return false;
    while (!reader.atEnd()) {
        quint8 kind = 0;
        quint32 size = 0;
        if (!reader.read(kind) || !reader.read(size) || size == 0 || sections.contains(kind))
            return false;
        const int begin = reader.position();
        if (!reader.skip(size))
            return false;
        sections.insert(kind, QByteArray::fromRawData(content.constData() + begin, int(size)));
    }
    return true;
}

// Reads one message: its parts, up to the one that ends it.
bool skipMessage(Reader &reader)
{
    for (;;) {
        quint8 part = 0;
        if (!reader.read(part))
            return false;
        if (part == End)
            return true;
        quint32 size = 0;
        if (!reader.read(size))
            return false;
        switch (part) {
        case Translation:
            if (size == kNullText)
                size = 0;
            break;
        case HashAgain: // of old files: no length, but the hash of the message
            size = 0;
            break;
        case SourceText:
        case Context:
        case Comment:
            break;
        default:
            return false;
        }
        if (!reader.skip(size))
            return false;
    }
}

// The hashes rise, and each leads to the beginning of a message.
bool areSoundMessages(const QByteArray &hashes, const QByteArray &messages)
{
    std::vector<quint32> begins; // in rising order
    for (Reader reader(messages); !reader.atEnd();) {
        begins.push_back(quint32(reader.position()));
        if (!skipMessage(reader))
            return false;
    }
    if (hashes.isEmpty())
        return false;
    quint32 before = 0;
    for (Reader reader(hashes); !reader.atEnd();) {
        quint32 hash = 0;
        quint32 begin = 0;
        if (!reader.read(hash) || !reader.read(begin) || hash < before ||
            !std::binary_search(begins.cbegin(), begins.cend(), begin))
            return false;
        before = hash;
    }
    return true;
}

// A table of where the lists of names begin, in steps of two bytes behind it. A list ends with an empty name.
// Qt's own compiler forgets that end after a list of an even length: a search runs on into what follows then,
// and at the end of the file into kZerosBehind. That many stop it, as no name is longer.
bool areSoundContexts(const QByteArray &contexts)
{
    Reader table(contexts);
    quint16 buckets = 0;
    if (!table.read(buckets) || buckets == 0)
        return false;
    for (int i = 0; i < buckets; ++i) {
        quint16 offset = 0;
        if (!table.read(offset) || (offset != 0 && kBucket * (1 + buckets + offset) >= contexts.size()))
            return false;
    }
    return true;
}

bool readFile(const QString &path, qint64 limit, QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    content = file.read(limit + 1);
    return file.error() == QFileDevice::NoError && content.size() <= limit;
}

// Whether `content` has the checksum that lies beside `file`. It may be what sha256sum writes, or the like:
// the first word of 64 hexadecimal digits counts. Without such a file there is nothing to compare.
bool hasItsChecksum(const QString &file, const QByteArray &content)
{
    const QString beside = file + QLatin1String(kChecksumSuffix);
    if (!QFile::exists(beside))
        return true;
    QByteArray text;
    if (!readFile(beside, kLongestChecksumFile, text))
        return false;
    const QRegularExpression pattern(QStringLiteral("\\b[0-9a-fA-F]{64}\\b"));
    const QString told = pattern.match(QString::fromLatin1(text)).captured();
    return QByteArray::fromHex(told.toLatin1()) ==
           QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

// A translator that keeps what it reads from.
class Catalogue : public QTranslator
{
public:
    Catalogue(const QByteArray &content, QObject *parent)
        : QTranslator(parent), m_size(content.size()), m_content(content + QByteArray(kZerosBehind, '\0'))
    {
    }

    bool read() { return load(reinterpret_cast<const uchar *>(m_content.constData()), m_size); }

private:
    const int m_size;
    const QByteArray m_content;
};

QTranslator *refuse(const QString &file, const char *reason)
{
    qCWarning(lcLumQt, "The catalogue %s is not used: it %s", qUtf8Printable(file), reason);
    return nullptr;
}

// Whether Qt's translator reads nothing but `content` and the zeros behind it.
bool isSound(const QByteArray &content)
{
    QMap<quint8, QByteArray> sections;
    if (!readSections(content, sections))
        return false;
    const QByteArray hashes = sections.take(Hashes);
    const QByteArray messages = sections.take(Messages);
    if (!areSoundMessages(hashes, messages))
        return false;
    if (sections.contains(Contexts) && !areSoundContexts(sections.take(Contexts)))
        return false;
    sections.remove(NumerusRules); // these Qt checks itself
    sections.remove(Language);
    return sections.isEmpty();
}

} // namespace

QTranslator *readCatalogue(const QByteArray &content, QObject *parent)
{
    if (!isSound(content))
        return nullptr;
    auto catalogue = std::make_unique<Catalogue>(content, parent);
    return catalogue->read() ? catalogue.release() : nullptr;
}

QTranslator *loadCatalogue(const QString &file, QObject *parent)
{
    QByteArray content;
    if (!readFile(file, kLongestCatalogue, content))
        return refuse(file, "cannot be read");
    if (!hasItsChecksum(file, content))
        return refuse(file, "has not the checksum that lies beside it");
    QTranslator *catalogue = readCatalogue(content, parent);
    return catalogue ? catalogue : refuse(file, "is damaged, or no catalogue");
}

bool installOwnCatalogue(const QString &language)
{
    QCoreApplication *application = QCoreApplication::instance();
    if (!application) {
        qCWarning(lcLumQt, "A catalogue needs an application to be installed in");
        return false;
    }
    QString name = language; // "en_GB" is served by "en"
    name.replace(QLatin1Char('-'), QLatin1Char('_'));
    while (!name.isEmpty() && !QFile::exists(QString::fromLatin1(kOwnCatalogue).arg(name)))
        name.truncate(qMax(0, name.lastIndexOf(QLatin1Char('_'))));
    if (name.isEmpty()) {
        qCWarning(lcLumQt, "The library has no catalogue for the language \"%s\"", qUtf8Printable(language));
        return false;
    }
    const QString file = QString::fromLatin1(kOwnCatalogue).arg(name);
    if (application->findChild<QTranslator *>(file, Qt::FindDirectChildrenOnly))
        return true;
    QTranslator *catalogue = loadCatalogue(file, application);
    if (!catalogue)
        return false;
    catalogue->setObjectName(file);
    return QCoreApplication::installTranslator(catalogue);
}

} // namespace lumqt
