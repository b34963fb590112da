#include "CBPTheme.h"
#include "Contrast.h"
#include "foundation/ImageLoader.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QDirIterator>

using P = CBPTheme::Purpose;

namespace {

// What is painted on what. A plus: of each state in the ground of that state.
const char *const kTexts[] = {
    "Text: Ground RaisedGround Field Hovered Pressed TipGround PopUpGround BoxGround BandGround PanelGround "
    "ChosenInactive",
    "QuietText: Ground RaisedGround Field",
    "DisabledText: Ground RaisedGround FieldDisabled Field ChosenDisabled",
    "ChosenText: Chosen",
    "OnAccent: Accent AccentHovered AccentPressed",
    "Danger: Ground Field",
    "Link+: Ground",
    "TitleText: TitleGround TitleButton TitleButtonHovered TitleButtonPressed",
    "WindowCaptionText: WindowCaption",
    "ButtonText+: ButtonGround+",
    "PrimaryText+: PrimaryGround+",
    "WaitingText: WaitingGround",
    "SecondaryText+: SecondaryGround+",
    "ImageText+: Ground",
    "ImageTip: TextTipGround",
    "PlainText+: Ground",
    "ToolText+: Ground",
    "ToggleText: Ground StateGround+",
    "ToggleHovered: Hovered",
    "ToggleChecked: Pressed",
    "ToggleTextDisabled: Ground ToggleGroundDisabled",
    "GroupText+: GroupGround+ TabGround+",
    "MenuText MenuTextDisabled: MenuGround",
    "MenuTextHovered: MenuGroundHovered",
    "PathText: PathGround",
    "PathTextHovered: PathGroundHovered",
    "TextTipLight: TextTipGround",
    "MessageText MessageHint NoticeHead AlertHead: PopUpGround",
    "WaiterText: WaiterGround",
    "CalendarText: CalendarGround CalendarHovered CalendarBar CalendarBarHovered CalendarBarPressed",
    "CalendarQuietText CalendarWeekend: CalendarGround CalendarHovered",
    "CalendarOutOfRange: CalendarGround",
    "CalendarChosenText: CalendarChosen",
    "SliderText LabelText HeadingText HeadingFocused HeadingDisabled: Ground PanelGround",
    "HeadingText: Hovered Pressed",
    "HeadingFocused: Pressed",
    "ProgressText: ProgressTrack",
    "ProgressTextDone: ProgressStart ProgressEnd",
};
const char *const kParts[] = {
    "Frame FrameHovered: Ground RaisedGround Field",
    "FrameDisabled: Ground FieldDisabled",
    "Rule: Ground Field",
    "Accent SecondAccent Warning Success: Ground",
    "FocusRing: Ground RaisedGround Field ButtonGround",
    "Badge: Ground TitleGround",
    "TitleLine TitleNotice: TitleGround",
    "WindowCaptionLine: WindowCaption WindowGround",
    "WindowBorder: WindowGround WindowOutside",
    "SeparatorMiddle: Ground",
    "ButtonFrame+: ButtonGround+ Ground",
    "ButtonTriangle+: ButtonGround+",
    "ButtonArrow ButtonDivider: ButtonGround ButtonGroundHovered ButtonGroundPressed",
    "ButtonArrowDisabled ButtonDividerDisabled: ButtonGroundDisabled",
    "ButtonFocusRing: ButtonGround Ground",
    "PrimaryGround PrimaryGroundHovered PrimaryGroundPressed: Ground",
    "SecondaryFrame+: SecondaryGround+ Ground",
    "StateFrameHovered: StateGroundHovered Ground",
    "StateFramePressed: StateGroundPressed Ground",
    "GroupFrame: GroupGround Ground",
    "ToggleFrame: Ground",
    "ToggleFrameDisabled: Ground ToggleGroundDisabled",
    "MenuSeparator MenuFrame Badge: MenuGround",
    "MenuBadgeHovered: MenuGroundHovered",
    "PathFrame: PathGround Ground",
    "TipFrame: TipGround Ground",
    "TextTipFrame: TextTipGround Ground",
    "PopUpLine PopUpOutline PopUpEdge: PopUpGround Ground",
    "WaiterFrame: WaiterGround Ground",
    "CalendarFrame: CalendarGround Ground",
    "CalendarToday: CalendarGround",
    "DateFrame: Field Ground",
    "DateFrameDisabled: FieldDisabled Ground",
    "AddressDot: Field",
    "AddressDotDisabled: FieldDisabled",
    "FieldTriangle: Field ButtonGround RaisedGround Ground",
    "ChoiceMark: CalendarGround",
    "AddressFrameDisabled: FieldDisabled Ground",
    "BoxFrame: BoxGround Ground",
    "BandFrame: BandGround Ground",
    "GridLine: Ground Field",
    "TabFrame: TabGround Ground",
    "SplitterFrame: SplitterGround Ground",
    "ScrollSlider ScrollSliderHovered: ScrollPage ScrollGround",
    "SliderHandle SliderHandleDisabled SliderTrack SliderTick Bar: Ground",
    "ProgressFrame: Ground RaisedGround",
    "ProgressStart ProgressEnd: ProgressTrack",
    "ProgressFirst ProgressSecond: ProgressThird",
};
// What only shades or fades out, and what lies on, or under, that of applications.
const char *const kNeither[] = {"Shadow: Ground",
                                "SeparatorStart SeparatorEnd StateFrame StateFrameDisabled: Ground",
                                "TextTipDark: RoundedGround", "TitleButtonDisabled: TitleGround"};

// Of the light theme, what is fixed as it is.
const char *const kFaint[] = {
    "DisabledText: Ground RaisedGround FieldDisabled Field ChosenDisabled",
    "Link LinkHovered LinkPressed LinkDisabled PlainTextDisabled SecondAccent Warning "
    "SeparatorMiddle PrimaryGround PrimaryGroundHovered ToggleFrame SliderHandle SliderHandleDisabled "
    "SliderTrack Bar: Ground",
    "TitleText: TitleGround TitleButtonHovered",
    "ButtonTextDisabled ButtonTriangleDisabled ButtonDividerDisabled: ButtonGroundDisabled",
    "PrimaryText: PrimaryGround",
    "PrimaryTextHovered: PrimaryGroundHovered",
    "PrimaryTextPressed: PrimaryGroundPressed",
    "PrimaryTextDisabled: PrimaryGroundDisabled",
    "WaitingText: WaitingGround",
    "SecondaryTextDisabled: SecondaryGroundDisabled",
    "ToggleHovered: Hovered",
    "ToggleChecked: Pressed",
    "ToggleTextDisabled ToggleFrameDisabled: Ground ToggleGroundDisabled",
    "GroupText: GroupGround TabGround",
    "GroupTextHovered: GroupGroundHovered TabGroundHovered",
    "GroupTextPressed: GroupGroundPressed TabGroundPressed",
    "GroupTextDisabled: GroupGroundDisabled TabGroundDisabled",
    "MenuTextHovered MenuBadgeHovered: MenuGroundHovered",
    "MessageHint NoticeHead AlertHead: PopUpGround",
    "WaiterText: WaiterGround",
    "CalendarQuietText: CalendarHovered",
    "CalendarWeekend: CalendarGround CalendarHovered",
    "CalendarOutOfRange: CalendarGround",
    "HeadingDisabled: Ground PanelGround",
    "FrameDisabled: Ground FieldDisabled",
    "Rule GridLine: Ground Field",
    "Badge: TitleGround MenuGround",
    "TitleNotice: TitleGround",
    "WindowCaptionLine: WindowCaption WindowGround",
    "ButtonFrameHovered: ButtonGroundHovered Ground",
    "ButtonFramePressed: ButtonGroundPressed Ground",
    "ButtonFrameDisabled: ButtonGroundDisabled Ground",
    "ButtonDivider: ButtonGround ButtonGroundHovered ButtonGroundPressed",
    "ButtonFocusRing: ButtonGround Ground",
    "SecondaryFrame: SecondaryGround Ground",
    "SecondaryFrameHovered: SecondaryGroundHovered Ground",
    "SecondaryFrameDisabled: SecondaryGroundDisabled Ground",
    "StateFrameHovered: StateGroundHovered Ground",
    "StateFramePressed: StateGroundPressed Ground",
    "GroupFrame: GroupGround Ground",
    "MenuSeparator: MenuGround",
    "PathFrame: PathGround Ground",
    "TipFrame: TipGround Ground",
    "PopUpLine PopUpOutline: PopUpGround Ground",
    "WaiterFrame: WaiterGround Ground",
    "CalendarFrame: CalendarGround Ground",
    "DateFrame: Field Ground",
    "DateFrameDisabled: FieldDisabled Ground",
    "AddressFrameDisabled: FieldDisabled Ground",
    "AddressDotDisabled: FieldDisabled",
    "BandFrame: BandGround Ground",
    "TabFrame: TabGround Ground",
    "SplitterFrame: SplitterGround Ground",
    "ScrollSlider: ScrollPage ScrollGround",
    "ProgressStart ProgressEnd: ProgressTrack",
    "ProgressFirst ProgressSecond: ProgressThird",
};
const char *const kFaintPictures[] = {
    "Common/back_disable.png on titleBar",
    "Common/minimize_disable.png on titleBar",
    "close_disable.png on ground",
    "icon_alert.png on ground",
    "icon_info.png on ground",
    "icon_log_calendar_disable.png on field",
    "icon_quest.png on ground",
    "line.png on ground",
    "list_disable.png on ground",
    "log_l.png on raised",
    "log_r.png on raised",
    "maximize_disable.png on ground",
    "maximize_disable.png on titleBar",
    "maximize_restore_disable.png on ground",
    "maximize_restore_disable.png on titleBar",
    "minimize_disable.png on ground",
    "title_logo.png on ground",
};
constexpr int kFaintOfDarkTitles = 2; // the first of these are in the dark theme, too

struct Painted
{
    P ink;
    P ground;
    bool isText;
};

constexpr double kNone = 21; // the contrast of black and white

const QMetaEnum kPurposes = QMetaEnum::fromType<P>();

// The purposes of a list, those of all states for one with a plus.
QVector<QVector<P>> purposesIn(const QString &list)
{
    QVector<QVector<P>> all;
    for (QString name : list.split(' ', Qt::SkipEmptyParts)) {
        const int states = name.endsWith('+') ? 4 : 1;
        name.remove('+');
        bool known = false;
        const int first = kPurposes.keyToValue(name.toLatin1(), &known);
        if (!known)
            qFatal("There is no purpose %s", qPrintable(name));
        QVector<P> purposes;
        for (int state = 0; state < states; ++state)
            purposes << P(first + state);
        all << purposes;
    }
    return all;
}

template <size_t n> QVector<Painted> pairsOf(const char *const (&table)[n], bool isText)
{
    QVector<Painted> all;
    for (const QString line : table) {
        for (const QVector<P> &inks : purposesIn(line.section(':', 0, 0))) {
            for (const QVector<P> &grounds : purposesIn(line.section(':', 1))) {
                for (int i = 0; i < qMax(inks.size(), grounds.size()); ++i)
                    all << Painted{inks.value(i, inks[0]), grounds.value(i, grounds[0]), isText};
            }
        }
    }
    return all;
}

QRgb over(QRgb color, QRgb ground)
{
    const auto mixed = [&](int upper, int lower) {
        return (upper * qAlpha(color) + lower * (255 - qAlpha(color))) / 255;
    };
    return qRgb(mixed(qRed(color), qRed(ground)), mixed(qGreen(color), qGreen(ground)),
                mixed(qBlue(color), qBlue(ground)));
}

// The least contrast that a colour has on a ground, which may let through what is behind it. What is
// see-through is not painted.
double seen(QRgb ink, QRgb ground)
{
    double least = kNone;
    for (const QRgb behind : {0xff000000, 0xffffffff}) {
        if (qAlpha(ink) == 0)
            break;
        const QRgb solid = over(ground, behind);
        least = qMin(least, contrast(over(ink, solid), solid));
    }
    return least;
}

QString nameOf(P purpose)
{
    return QString::fromLatin1(kPurposes.valueToKey(int(purpose)));
}

// The faults that are not known, and the known ones that are none any more.
QString difference(const QStringList &found, const QStringList &known)
{
    QStringList all;
    for (const QString &fault : found)
        all << (known.contains(fault.section(' ', 0, 2)) ? QStringList() : QStringList(fault));
    for (const QString &fault : known) {
        const auto isIt = [&](const QString &one) { return one.section(' ', 0, 2) == fault; };
        if (std::none_of(found.begin(), found.end(), isIt))
            all << fault + " is no fault";
    }
    return all.join('\n');
}

// The grounds of a picture by the table that artwork/ is rendered with; "own": it brings its ground.
QStringList groundsOf(const QString &picture)
{
    QFile table(QStringLiteral(LUMQT_ARTWORK "/grounds.txt"));
    if (!table.open(QIODevice::ReadOnly))
        return {};
    const QStringList lines = QString::fromUtf8(table.readAll()).split('\n');
    for (const QString &line : lines) {
        const QString pattern = QRegularExpression::wildcardToRegularExpression(line.section(':', 0, 0));
        if (!line.startsWith('#') && line.contains(':') &&
            QRegularExpression(pattern).match(picture).hasMatch())
            return line.section(':', 1).split(' ', Qt::SkipEmptyParts);
    }
    return {};
}

// The contrast of what stands out most.
double seen(const QImage &picture, QRgb ground)
{
    double most = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            most = qMax(most, contrast(over(picture.pixel(x, y), ground), ground));
    }
    return most;
}

} // namespace

// What can be read and told apart in each theme, by its colours. What pages show is in tst_gallery.
class TestContrast : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { CBPTheme::apply("light"); }

    void everyPurposeIsLookedAt()
    {
        QVector<P> all;
        for (const Painted &pair : pairsOf(kTexts, true) + pairsOf(kParts, false) + pairsOf(kNeither, false))
            all << pair.ink << pair.ground;
        QStringList missing;
        for (int i = 0; i < kPurposes.keyCount(); ++i)
            missing << (all.contains(P(i)) ? QStringList() : QStringList(kPurposes.key(i)));
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(' ')));
    }

    void pairs_data()
    {
        QStringList faint;
        for (const Painted &pair : pairsOf(kFaint, false))
            faint << nameOf(pair.ink) + " on " + nameOf(pair.ground);
        themes(faint, {});
    }
    void pairs()
    {
        QFETCH(QString, theme);
        QFETCH(double, text);
        QFETCH(double, part);
        QFETCH(QStringList, known);
        QVERIFY(CBPTheme::apply(theme));
        QStringList faults;
        for (const Painted &pair : pairsOf(kTexts, true) + pairsOf(kParts, false)) {
            const double found = seen(CBPTheme::color(pair.ink).rgba(), CBPTheme::color(pair.ground).rgba());
            if (found < (pair.isText ? text : part))
                faults << QString("%1 on %2 %3")
                              .arg(nameOf(pair.ink), nameOf(pair.ground), QString::number(found, 'f', 2));
        }
        faults.removeDuplicates();
        const QString differ = difference(faults, known);
        QVERIFY2(differ.isEmpty(), qPrintable(differ));
    }

    void pictures_data()
    {
        const QStringList faint(std::begin(kFaintPictures), std::end(kFaintPictures));
        themes(faint, faint.mid(0, kFaintOfDarkTitles));
    }
    void pictures()
    {
        QFETCH(QString, theme);
        QFETCH(double, part);
        QFETCH(QStringList, known);
        QVERIFY(CBPTheme::apply(theme));
        const QMap<QString, P> purposes{{"ground", P::Ground},       {"titleBar", P::TitleGround},
                                        {"raised", P::RaisedGround}, {"field", P::Field},
                                        {"hovered", P::Hovered},     {"pressed", P::Pressed}};
        const QString res = Util::getResFullPath("../res/");
        QDirIterator files(res, {"*@2x.png"}, QDir::Files, QDirIterator::Subdirectories);
        QStringList faults;
        int all = 0;
        while (files.hasNext()) {
            const QString path = files.next().replace("@2x", "");
            const QString name = path.mid(res.size());
            if (name.startsWith("dark/") || name.startsWith("contrast/"))
                continue;
            const QStringList grounds = groundsOf(name);
            QVERIFY2(!grounds.isEmpty(), qPrintable(name));
            const QImage picture =
                lumqt::loadPixmap(path, 2).toImage().convertToFormat(QImage::Format_ARGB32);
            for (const QString &ground : grounds) {
                QVERIFY2(ground == "own" || purposes.contains(ground), qPrintable(ground));
                const double found =
                    ground == "own" ? kNone : seen(picture, CBPTheme::color(purposes[ground]).rgb());
                ++all;
                if (found < part)
                    faults << QString("%1 on %2 %3").arg(name, ground, QString::number(found, 'f', 2));
            }
        }
        QVERIFY(all > 50);
        faults.sort();
        const QString differ = difference(faults, known);
        QVERIFY2(differ.isEmpty(), qPrintable(differ));
    }

private:
    // What is asked of each theme, and what may fall short in it.
    static void themes(const QStringList &ofLight, const QStringList &ofDark)
    {
        columns<QString, double, double, QStringList>("theme", "text", "part", "known");
        row("light", QString("light"), kTextContrast, kPartContrast, ofLight);
        row("dark", QString("dark"), kTextContrast, kPartContrast, ofDark);
        row("contrast", QString("contrast"), kHighTextContrast, kHighPartContrast, QStringList());
    }
};

LUMQT_TEST_MAIN(TestContrast)
#include "tst_contrast.moc"
