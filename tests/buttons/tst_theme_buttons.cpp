#include "Acts.h"
#include "CAddBtn.h"
#include "CBPCheckBox.h"
#include "CBPDropdownBtn.h"
#include "CBPImageTextBtn.h"
#include "CBPLinkerButton.h"
#include "CBPTheme.h"
#include "CBPToolButton.h"
#include "CButtonGroupBox.h"
#include "CTabContainer.h"
#include "CTriStateButton.h"
#include "foundation/Palette.h"
#include "Pictures.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QMetaEnum>
#include <QVBoxLayout>

using P = CBPTheme::Purpose;

// But for what blending loses.
static bool isSeen(const QImage &image, const QColor &color)
{
    const QList<QRgb> seen = colorsIn(image, image.rect()).keys();
    return std::any_of(seen.begin(), seen.end(), [&](QRgb pixel) {
        return qAbs(qRed(pixel) - color.red()) <= 1 && qAbs(qGreen(pixel) - color.green()) <= 1 &&
               qAbs(qBlue(pixel) - color.blue()) <= 1;
    });
}

// By the getters.
static QVector<QColor> reported(QWidget *widget)
{
    QVector<QColor> colors;
    if (auto *tool = qobject_cast<CBPToolButton *>(widget))
        colors << tool->textClr();
    const auto *button = dynamic_cast<CBtnObj *>(widget);
    for (int i = 0; button && i < 4; ++i)
        colors << button->bgColor(i) << button->frmColor(i) << button->textColor(i);
    return colors;
}

class Repeating : public CBPPushBtn
{
public:
    explicit Repeating(const QString &text) : CBPPushBtn(text, nullptr, true)
    {
        setBgColor(m_bgColor);
        setFrmColor(m_frmColor);
        setTextColor(m_textColor);
    }
};

// A widget, and the purposes whose colours are seen of it; of none where an application has set them all.
struct Sample
{
    QWidget *widget;
    const char *acts;
    QVector<P> painted;
};

class TestThemeButtons : public QObject
{
    Q_OBJECT

private:
    const QString m_text = QStringLiteral("WWWWWWWW"); // has pixels of the very colour of the text
    QTemporaryDir m_dir;
    const QVector<QString> m_files =
        savePictures(m_dir, "p%1.png", QSize(10, 10), QVector<QColor>(4, Qt::cyan));
    QString m_distinct;    // a theme in which no two purposes have one colour
    QVBoxLayout *m_column; // of the window that they all stand in
    CBPPushBtn *m_push;
    CBPDropdownBtn *m_split;
    CTriStateButton *m_toggle;
    CBPToolButton *m_tool;
    CBPLinkerButton *m_link;
    CBPImageButton *m_image;
    CButtonGroupBox *m_group;

    // One of each.
    void make()
    {
        m_push = new CBPPushBtn(m_text, nullptr, true);
        m_split = new CBPDropdownBtn(m_text, 1);
        m_split->setSplit(true);
        m_toggle = new CTriStateButton(m_text, false, false, nullptr);
        m_tool = new CBPToolButton(m_text, 1, ENAlignLeft, true);
        m_tool->setFixedHeight(30);
        m_link = new CBPLinkerButton(m_text);
        m_image = new CBPImageButton(m_files, false, 1);
        m_image->SetText(m_text, true, 4);
        m_group = new CButtonGroupBox(true, nullptr);
        for (QWidget *widget :
             std::initializer_list<QWidget *>{m_push, m_split, m_toggle, m_tool, m_link, m_image, m_group})
            m_column->addWidget(widget);
    }

    QVector<Sample> states()
    {
        QVector<Sample> all;
        for (int state = 0; state < 4; ++state) {
            make();
            const Sample samples[] = {
                {m_push, nullptr, {P::ButtonGround, P::ButtonFrame, P::ButtonText}},
                {m_split, nullptr, {P::ButtonGround, P::ButtonFrame, P::ButtonText, P::ButtonTriangle}},
                {m_tool, nullptr, {P::StateGround, P::StateFrame, P::ToolText}},
                {m_link, nullptr, {P::Link}},
                {m_image, nullptr, {P::ImageText}},
                {new CBPImageTextBtn(m_files, m_text), nullptr, {P::PlainText}},
                {m_group->AddButton(1, m_text, QString()), nullptr, {P::GroupGround, P::GroupText}}};
            static const char *const acts[] = {"", "enter", "press", "disable"};
            for (Sample sample : samples) {
                sample.acts = acts[state];
                for (P &purpose : sample.painted)
                    purpose = P(int(purpose) + state);
                all << sample;
            }
        }
        return all;
    }

    QVector<Sample> parts()
    {
        make();
        m_push->setHasMenu(true);
        m_push->CBtnObj::setBgTrancent(true);
        m_push->CBtnObj::setBgTrancent(false); // which is no colour of its own
        auto *tabs = new CTabContainer;
        for (const int id : {1, 2})
            tabs->Appendtab(new QWidget, m_text, id);
        auto *checked = new CTriStateButton(m_text, false, false, nullptr);
        checked->SetChecked(true);
        auto *ticked = new CBPCheckBox(m_text);
        ticked->setChecked(true);
        return {{m_push, "focusin", {P::ButtonFocusRing, P::ButtonArrow, P::ButtonGround}},
                {m_split, "focusin", {P::FocusRing, P::ButtonDivider}},
                {new CAddBtn, "focusin", {P::FocusRing}},
                {m_toggle, "enter", {P::ToggleHovered, P::ButtonGroundHovered}},
                {checked, "", {P::ToggleChecked, P::ButtonGroundPressed}},
                {new CBPCheckBox(m_text), "", {P::Text, P::Field, P::Frame}},
                {new CBPCheckBox(m_text), "disable", {P::DisabledText, P::FieldDisabled}},
                {ticked, "", {P::Accent}},
                {tabs, "", {P::TabFrame, P::TabGround, P::TabGroundPressed, P::GroupText}}};
    }

    // To the colours that they had anyway, or to an invalid one.
    QVector<Sample> owned()
    {
        make();
        QColor frames[] = {QColor(), Qt::red, Qt::green};
        m_toggle->SetColor(frames[0], frames[1], frames[2]);
        m_push->setFocusFrameColor(QColor());
        m_split->setFocusFrameColor(QColor());
        for (CBtnObj *button : std::initializer_list<CBtnObj *>{m_push, m_split, m_toggle}) {
            button->setBgColor(lumqt::builtInColors(P::ButtonGround));
            button->setFrmColor(lumqt::builtInColors(P::ButtonFrame));
            button->setTextColor(lumqt::builtInColors(P::ButtonText));
            button->setTriangleColor(lumqt::builtInColors(P::ButtonTriangle));
        }
        m_tool->SetBgColor(lumqt::builtInColors(P::StateGround));
        m_tool->SetFrmColor(lumqt::builtInColors(P::StateFrame));
        m_tool->SetTextColor(lumqt::builtInColors(P::ToolText));
        m_link->SetTextColor(lumqt::builtInColors(P::Link));
        m_image->SetText(m_text, QFont(), lumqt::builtInColors(P::ImageText), true, 4, 0);
        m_image->SetSpecialIcon(true, QColor());
        m_group->CBPBox::SetBgClr(lumqt::builtInColor(P::BoxGround));
        m_group->SetFrameClr(lumqt::builtInColor(P::GroupFrame));
        m_group->SetBgClr(lumqt::builtInColors(P::GroupGround));
        m_group->SetTextClr(lumqt::builtInColors(P::GroupText));
        m_group->AddButton(1, m_text, QString());
        return {{m_push, "focusin", {}}, {m_split, "focusin", {}},
                {m_toggle, "", {}},      {m_tool, "", {}},
                {m_link, "", {}},        {m_image, "", {}},
                {m_group, "", {}},       {new Repeating(m_text), "", {}}};
    }

private Q_SLOTS:
    void initTestCase()
    {
        QFile file(m_dir.filePath("distinct.ini"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const auto purposes = QMetaEnum::fromType<P>();
        for (int i = 0; i < purposes.keyCount(); ++i) {
            const QColor color((37 + i * 73) % 256, (59 + i * 151) % 256, (83 + i * 199) % 256);
            file.write(QByteArray(purposes.key(i)) + "=" + color.name().toLatin1() + "\n");
        }
        file.close();
        m_distinct = CBPTheme::load(file.fileName());
    }

    // Shown before, as ever after, and with the getters saying the same all the time.
    void shownOnesFollow()
    {
        QWidget window;
        window.setFocusPolicy(Qt::StrongFocus); // and has it: what is shown first would
        m_column = new QVBoxLayout(&window);
        const QVector<Sample> all = states() + parts() + owned();
        for (const Sample &sample : all) {
            if (!sample.widget->parentWidget())
                m_column->addWidget(sample.widget);
        }
        window.setFocus();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (const Sample &sample : all) {
            perform(sample.widget, sample.acts);
            const QImage light = sample.widget->grab().toImage();
            const QVector<QColor> told = reported(sample.widget);
            QVERIFY(CBPTheme::apply(m_distinct));
            QCOMPARE(reported(sample.widget), told);
            const QImage themed = sample.widget->grab().toImage();
            for (const P purpose : sample.painted)
                QVERIFY2(isSeen(themed, CBPTheme::color(purpose)),
                         QMetaEnum::fromType<P>().valueToKey(int(purpose)));
            if (sample.painted.isEmpty())
                QVERIFY2(themed == light, sample.widget->metaObject()->className());
            QVERIFY(CBPTheme::apply("light"));
            QCOMPARE(sample.widget->grab().toImage(), light);
        }
    }

    void cleanup() { QVERIFY(CBPTheme::apply("light")); }

    // Qt's own are made for the application's palette; one that the icon has, is somebody's choice.
    void disabledIcons()
    {
        QPixmap picture(16, 16), own(16, 16);
        picture.fill(QColor(200, 100, 0));
        own.fill(Qt::blue);
        const QIcon plain(picture);
        QIcon chosen(picture);
        chosen.addPixmap(own, QIcon::Disabled);
        const auto shown = [](const QIcon &icon) {
            CBPPushBtn push(QString(), nullptr);
            push.setIcon(icon);
            push.setEnabled(false);
            push.resize(60, 28);
            return grabbedAt(push, 30, 14);
        };
        const QColor light = shown(plain);
        CBPTheme::apply("dark");
        const QColor dark = shown(plain), ground = lumqt::themeColor(P::ButtonGroundDisabled);
        QVERIFY(dark.red() < 200 && dark.red() > ground.red() && dark.blue() < ground.blue());
        QCOMPARE(shown(chosen), QColor(Qt::blue));
        CBPTheme::apply("light");
        QCOMPARE(shown(plain), light);
    }
};

LUMQT_TEST_MAIN(TestThemeButtons)
#include "tst_theme_buttons.moc"
