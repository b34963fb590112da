#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QString>
#include <QVariant>

class QObject;
class QTranslator;

/// Paths of resources, ini files, title colours and two validators: what every widget of the library asks
/// for; and the catalogues of its texts.
///
/// All members are static. Resource names are written relative to the program's folder and begin with
/// "../res/": the folder `res` lies beside the folder that holds the running program. Where it is not there,
/// the widgets read the copy that the library carries, ":/lumqtlib/res/"; so does readIni(). GUI thread only.
/// \since 1.0
class LUMQT_EXPORT Util
{
public:
    Util() = delete;

    /// The absolute path of a resource, such as "../res/UIConfig.ini".
    ///
    /// Every "../" of \a rel is removed and the rest is put behind the folder above the program's. To find
    /// that folder the name of the program's own folder is removed from its path \e wherever it occurs, so a
    /// program in C:\\binaries\\bin looks under C:\\aries\\: give the folder a name that occurs nowhere else
    /// in the path. On Windows the path has backslashes. An empty \a rel gives an empty string; whether the
    /// file exists is not looked at. Before there is a QCoreApplication the result is the bare relative name.
    /// \since 1.0
    static QString getResFullPath(const QString &rel);

    /// The absolute path of an image of the dark set: getResFullPath("../res/Common/" + \a name).
    /// \since 1.0
    static QString getLumResFullPath(const QString &name);

    /// The path of a file in the program's own folder. \a name is appended as it stands; empty gives empty.
    /// \since 1.0
    static QString getcurappPath(const QString &name);

    /// \a s without its last character if that is \a c.
    ///
    /// With \a alsoBackslash one backslash that then ends the string goes too, whatever \a c was: at most two
    /// characters are removed.
    /// \since 1.0
    static QString chopTailChar(const QString &s, char c, bool alsoBackslash);

    /// \a s without one trailing backslash.
    /// \since 1.0
    static QString chopDirSplitor(const QString &s);

    /// Reads \a group / \a key of the ini file \a file into \a value and says whether it was there.
    ///
    /// With an empty file, key or group the answer is false and \a value is untouched. A file that is missing
    /// or unreadable answers false and leaves an invalid \a value. A text that holds commas and no quotes is
    /// a list. In which encoding the file is depends on Qt, see \ref guide-qt6. \since 1.0
    static bool readIni(QString group, QString key, QVariant &value, QString file);

    /// Writes \a value at \a group / \a key of the ini file \a file, which is made when missing.
    ///
    /// Does nothing when file, key or group is empty. Letters outside of ASCII are escaped with Qt 5 and in
    /// UTF-8 with Qt 6, which reads both. Where the file lies in a folder `res` that an application does not
    /// ship, that is made, too, and takes the place of the library's copy as a whole. A file that cannot be
    /// written is reported in the log category "lumqtlib". \since 1.0
    static void writeIni(QString group, QString key, QVariant value, QString file);

    /// The title bar's background from "../res/UIConfig.ini"; invalid (use the built-in colour) when missing
    /// or no colour. Read anew at each call. \since 1.0
    static QColor GetWindowTitleBgColor();

    /// The title's text colour from "../res/UIConfig.ini"; invalid when missing or no colour.
    /// \since 1.0
    static QColor GetWindowTitleTextColor();

    /// The colour of the line under the title bar from "../res/UIConfig.ini"; invalid when missing or no
    /// colour. \a found says whether the key is there. \since 1.0
    static QColor GetWindowTitleBottomLineClr(bool &found);

    /// Whether \a s looks like a mail address with a top-level domain of two to four letters.
    /// \since 1.0
    static bool IsMail(const QString &s);

    /// Whether \a s is an IPv4 address in dotted notation. A part of two digits may start with 0, one of
    /// three may not. \since 1.0
    static bool IsIPAddress(const QString &s);

    /// Installs the library's own texts for \a language, which it carries inside itself: no file is read.
    ///
    /// There are English ones, with which "{caption}Message" reads as Message. "en_GB" is served by "en".
    /// Call it once there is an application, and before you install translators of your own: Qt asks the last
    /// one first. A second call for the same language changes nothing and says true. False, and a line in the
    /// log category "lumqtlib", for a language that the library has no texts in, and without an application.
    /// \since 1.0
    static bool InstallCatalogue(const QString &language = QStringLiteral("en"));

    /// A translator with the texts of the compiled catalogue \a file (.qm), for installTranslator(); null,
    /// and a line in the log category "lumqtlib", for a file that is missing, damaged or none.
    ///
    /// Use it in place of QTranslator::load(), which trusts a file: what is damaged crashes there, at some
    /// text later on. Here every length and offset is checked first. Where a checksum lies beside the file,
    /// as sha256sum writes it, in a file of that name with ".sha256" behind it, any change is noticed;
    /// "../res/lumqtlib_en.qm" has one. A catalogue above 64 MiB, or one that refers to others, is not used.
    /// The whole file is in memory then, and may be replaced.
    ///
    /// The translator is a child of \a parent, or the caller's; deleting it removes it from the application.
    ///
    /// \code
    /// Util::InstallCatalogue();
    /// if (QTranslator *german = Util::LoadCatalogue(Util::getResFullPath("../res/lumqtlib_de.qm"), qApp))
    ///     QCoreApplication::installTranslator(german);
    /// \endcode
    /// \since 1.0
    static QTranslator *LoadCatalogue(const QString &file, QObject *parent = nullptr);
};
