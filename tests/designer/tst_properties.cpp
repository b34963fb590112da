#include "CBPGridBox.h"
#include "designer/Samples.h"
#include "Pixels.h"
#include "PropertyHeaders.h"
#include "TestMain.h"

#include <QSignalSpy>

#include <memory>

using Object = std::unique_ptr<QObject>;

namespace {

template <class Widget> Object make()
{
    return Object(new Widget(static_cast<QWidget *>(nullptr)));
}

// Windows as applications have them, after Init().
template <class Window> Object makeFramed()
{
    struct Initialised : Window
    {
        Initialised() : Window(nullptr) { Window::Init(); }
    };
    return Object(new Initialised);
}

Object makePopUp()
{
    auto window = std::make_unique<CBPPopWnd>();
    window->Init(true);
    return window;
}

Object makeTabs()
{
    auto tabs = std::make_unique<CTabContainer>();
    for (const char *title : {"First", "Second"}) {
        auto *page = new QWidget;
        page->setWindowTitle(QLatin1String(title));
        tabs->addPage(page);
    }
    return tabs;
}

Object makeTabPage()
{
    auto item = std::make_unique<CTabPageItem>(40);
    item->AddPage(QStringLiteral("Title"), new QWidget);
    return item;
}

// With the label that an application's own waiter has for its text.
Object makeSyncWaiter()
{
    struct Labelled : CBPUISyncWaiter
    {
        Labelled() : CBPUISyncWaiter(QString()) { setWaitingLabel(new QLabel(this)); }
    };
    return Object(new Labelled);
}

Object makePathRow()
{
    ComboxItem record;
    return std::make_unique<CBPComboxItem>(record);
}

// A handle does not live without a splitter, which is deleted with it.
Object makeHandle()
{
    struct Handle : CBPSplitterHandle
    {
        Handle() : CBPSplitterHandle(Qt::Horizontal, new QSplitter), m_owned(splitter()) {}
        ~Handle() override { setParent(nullptr); }
        const std::unique_ptr<QSplitter> m_owned;
    };
    return Object(new Handle);
}

struct Kind
{
    const char *name;
    Object (*make)();
    bool ownOnly = false; // without the properties of its base class
};

// A class that others derive from is tried with them.
const Kind kKinds[] = {
    {"CBPPushBtn", make<CBPPushBtn>},
    {"CBPMenuBtn", make<CBPMenuBtn>},
    {"CAddBtn", make<CAddBtn>},
    {"CBPRoundBtn", make<CBPRoundBtn>},
    {"CTriStateButton", make<CTriStateButton>},
    {"CBPWaitBtn", make<CBPWaitBtn>},
    {"CExpandBtn", make<CExpandBtn>},
    {"CBPImageButton", make<CBPImageButton>},
    {"CBPImageTextBtn", make<CBPImageTextBtn>},
    {"CBPImageCheckBox", make<CBPImageCheckBox>},
    {"CBPToolButton", make<CBPToolButton>},
    {"CBPLinkerButton", make<CBPLinkerButton>},
    {"CBPDropdownBtn", make<CBPDropdownBtn>},
    {"CButtonGroupBox", make<CButtonGroupBox>},
    {"CBPLabel", make<CBPLabel>},
    {"CBPDrawLabel", make<CBPDrawLabel>},
    {"CBPEllipsisGifLabel", make<CBPEllipsisGifLabel>},
    {"CBPGifLable", make<CBPGifLable>},
    {"CBPImage", make<CBPImage>},
    {"CBPLine", make<CBPLine>},
    {"CBPGradientProgressBar", make<CBPGradientProgressBar>},
    {"CBPJumpSlider", make<CBPJumpSlider>},
    {"CBPSmoothSlider", make<CBPSmoothSlider>},
    {"CFoucsLabel", make<CFoucsLabel>},
    {"CBPAnimationObj", [] { return Object(new CBPAnimationObj(QStringList())); }},
    {"CBPLineEdit", make<CBPLineEdit>},
    {"CBPSearchEdit", make<CBPSearchEdit>},
    {"CBPTextEdit", make<CBPTextEdit>},
    {"CBPIPInputWidget", make<CBPIPInputWidget>},
    {"CBPDateSelector", make<CBPDateSelector>},
    {"CBPDaySelector", make<CBPDaySelector>},
    {"CBPWeekSelector", make<CBPWeekSelector>},
    {"CEditTimeEdit", make<CEditTimeEdit>},
    {"CEditTimeEditItem", make<CEditTimeEditItem>},
    {"CBPBox", make<CBPBox>},
    {"CBPGridBox", make<CBPGridBox>},
    {"CBPFrameBox", make<CBPFrameBox>},
    {"CBPFlowWidget", make<CBPFlowWidget>},
    {"CBPFlowLayout", [] { return Object(new CBPFlowLayout); }},
    {"CTabContainer", makeTabs},
    {"CTabPageItem", makeTabPage},
    {"CBPSplitter", make<CBPSplitter>},
    {"CBPSplitterHandle", makeHandle},
    {"CBPStateWidget", make<CBPStateWidget>},
    {"CBPScrollBar", make<CBPScrollBar>},
    {"CBPTreeWidget", make<CBPTreeWidget>},
    {"CBPMenu", make<CBPMenu>},
    {"CBPPathDropdWnd", make<CBPPathDropdWnd>},
    {"CBPComboxItem", makePathRow},
    {"CBPWinFrmTitle", make<CBPWinFrmTitle>},
    {"CBPWinFrm", makeFramed<CBPWinFrm>},
    {"CBPWinWidget", makeFramed<CBPWinWidget>},
    {"CBPPopWnd", makePopUp},
    {"CMsgBox", make<CMsgBox>},
    {"CBPUISyncWaiter", makeSyncWaiter, true}, // it has no title bar
    {"CBPWaiter", [] { return Object(new CBPWaiter(nullptr, QStringLiteral("Text"), 1000, false)); }},
    {"CBaseWin", make<CBaseWin>},
    {"CTextTips", [] { return Object(new CTextTips); }},
    {"CBPTipWnd", [] { return Object(new CBPTipWnd(ENOrientationNone, nullptr)); }},
};

// One row for each property of each class.
void properties(bool (*wanted)(const QMetaProperty &))
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("index");
    for (int kind = 0; kind < int(std::size(kKinds)); ++kind) {
        const Object object = kKinds[kind].make();
        const QMetaObject *type = object->metaObject();
        for (int index = 0; index < type->propertyCount(); ++index) {
            const QMetaProperty property = type->property(index);
            if (kKinds[kind].ownOnly && index < type->propertyOffset())
                continue;
            // Declared again, only the last counts.
            if (samples::isOurs(type, index) && type->indexOfProperty(property.name()) == index &&
                wanted(property))
                QTest::addRow("%s.%s", kKinds[kind].name, property.name()) << kind << index;
        }
    }
}

// What the class's own function says of a property, beside what the meta-object does.
void compare(const QMetaObject &type, const char *name, QObject *object, const QVariant &own)
{
    const QMetaProperty property = type.property(type.indexOfProperty(name));
    const QVariant read = property.read(object);
    const bool same = property.isEnumType() ? read.toInt() == own.toInt() : samples::equal(read, own);
    QVERIFY2(same,
             qPrintable(QStringLiteral("%1.%2").arg(QLatin1String(type.className()), QLatin1String(name))));
}

} // namespace

class TestProperties : public QObject
{
    Q_OBJECT

private:
    Object m_object;
    QMetaProperty m_property;
    QString m_type;

    void makeRow()
    {
        QFETCH(int, kind);
        QFETCH(int, index);
        m_type = QLatin1String(kKinds[kind].name);
        m_object = kKinds[kind].make();
        const auto first = samples::before(m_type);
        for (const auto &value : first)
            QVERIFY(m_object->setProperty(value.first, value.second));
        m_property = m_object->metaObject()->property(index);
    }

    QVariant read() const { return m_property.read(m_object.get()); }

private slots:
    void cleanup()
    {
        m_object.reset();
        if (!qApp->styleSheet().isEmpty())
            qApp->setStyleSheet(QString());
        CBPTheme::apply(QStringLiteral("light"));
    }

    void keepsWhatIsSet_data()
    {
        properties([](const QMetaProperty &property) { return property.isWritable(); });
    }

    // Each value is set twice: what is set again is told to nobody.
    void keepsWhatIsSet()
    {
        makeRow();
        // An address is told of octet by octet.
        const auto atMost = m_type == QLatin1String("CBPIPInputWidget") ? 1 : 1000;
        const samples::Pair values = samples::of(m_property, m_type);
        QVERIFY2(values.first.isValid(), m_property.typeName());
        std::unique_ptr<QSignalSpy> spy;
        if (m_property.hasNotifySignal())
            spy = std::make_unique<QSignalSpy>(m_object.get(), m_property.notifySignal());
        const QVariant fresh = read();
        for (const QVariant &value : {values.first, values.second, values.first}) {
            const bool changes = !samples::equal(read(), value);
            if (spy)
                spy->clear();
            for (int time = 0; time < 2; ++time) {
                QVERIFY(m_property.write(m_object.get(), value));
                const QString said =
                    QStringLiteral("%1 instead of %2")
                        .arg(read().toStringList().join(','), value.toStringList().join(','));
                QVERIFY2(samples::equal(read(), value), qPrintable(said));
            }
            if (spy)
                QCOMPARE(qMin(spy->size(), atMost), changes ? 1 : 0);
        }
        if (m_property.isResettable()) {
            QVERIFY(m_property.reset(m_object.get()));
            QVERIFY2(samples::equal(read(), fresh), "not what it was at first");
        }
    }

    // What the setters clamp or refuse comes out as it does there.
    void badValues_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("bad");
        QTest::addColumn<QVariant>("kept"); // not valid: what was there
        const auto bad = [](const char *type, const char *property, const QVariant &value,
                            const QVariant &kept = QVariant()) {
            QTest::addRow("%s.%s: %s", type, property, qPrintable(value.toString()))
                << QString::fromLatin1(type) << QByteArray(property) << value << kept;
        };
        bad("CBPRoundBtn", "diameter", -1, 1);
        bad("CBPRoundBtn", "diameter", 5000, 4096);
        bad("CBPLinkerButton", "fontPixelSize", 0);
        bad("CBPToolButton", "pixelSize", 0);
        bad("CBPToolButton", "state", 7);
        bad("CBPLabel", "pixelSize", -4, 12);
        bad("CBPDrawLabel", "pixelSize", 0);
        bad("CBPGradientProgressBar", "value", 7.0, 1.0);
        bad("CBPGradientProgressBar", "value", 0.0, 0.01);
        bad("CBPGradientProgressBar", "value", qQNaN());
        bad("CBPJumpSlider", "value", 99, 2);
        bad("CBPJumpSlider", "currentText", "nowhere");
        bad("CBPSmoothSlider", "value", 1000, 100);
        bad("CFoucsLabel", "indent", -5, 0);
        bad("CBPTextEdit", "leftTextMargin", -3, 0);
        bad("CBPAnimationObj", "interval", 0);
        bad("CBPIPInputWidget", "ip", "300.1.1.1");
        bad("CBPDateSelector", "date", QDate(1900, 1, 1), QDate(1980, 1, 1));
        bad("CBPDateSelector", "date", QDate());
        bad("CBPDaySelector", "selected", QStringList());
        bad("CBPBox", "leftBorder", -4, 0);
        bad("CBPFrameBox", "titleHeight", INT_MAX, QWIDGETSIZE_MAX);
        bad("CTabContainer", "currentPage", -7);
        bad("CBPWinWidget", "shadowBorder", -7, 0);
        bad("CBPWinFrm", "titleBackground", QColor());
        bad("CTextTips", "backgroundColor", QColor());
        bad("CBPMenu", "cornerRadius", -7, 0);
        bad("CBPTipWnd", "orientation", 99, 0);
        bad("CBPPopWnd", "buttons", 99, 98);
    }

    void badValues()
    {
        QFETCH(QString, type);
        QFETCH(QByteArray, property);
        QFETCH(QVariant, bad);
        QFETCH(QVariant, kept);
        const auto kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&type](const Kind &each) {
            return type == QLatin1String(each.name);
        });
        QVERIFY(kind != std::end(kKinds));
        m_object = kind->make();
        const auto first = samples::before(type);
        for (const auto &value : first)
            QVERIFY(m_object->setProperty(value.first, value.second));
        const QVariant before = m_object->property(property);
        m_object->setProperty(property, bad);
        const QVariant after = m_object->property(property);
        QVERIFY2(samples::equal(after, kept.isValid() ? kept : before), qPrintable(after.toString()));
    }

    void styleSheetSetsIt_data()
    {
        properties(
            [](const QMetaProperty &property) { return property.isWritable() && property.isDesignable(); });
    }

    // The application's, which is there first, as it mostly is. One of the widget itself Qt forgets where the
    // class has set another before.
    void styleSheetSetsIt()
    {
        makeRow();
        const QVariant value = samples::of(m_property, m_type).first;
        const QString words = samples::inSheet(m_property, value);
        if (!m_object->isWidgetType() || words.isEmpty())
            return;
        qApp->setStyleSheet(
            QStringLiteral("%1{qproperty-%2: %3}").arg(m_type, QLatin1String(m_property.name()), words));
        makeRow();
        static_cast<QWidget *>(m_object.get())->ensurePolished();
        const QString said = QStringLiteral("%1 instead of %2")
                                 .arg(read().toStringList().join(','), value.toStringList().join(','));
        QVERIFY2(samples::equal(read(), value), qPrintable(said));
    }

    void gettersSayTheSame_data()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind < int(std::size(kKinds)); ++kind)
            QTest::newRow(kKinds[kind].name) << kind;
    }

    void gettersSayTheSame()
    {
        QFETCH(int, kind);
        const Object made = kKinds[kind].make();
        QObject *object = made.get();
#define GETTER(Class, property, function)                                                                    \
    if (auto *own = qobject_cast<Class *>(object))                                                           \
        compare(Class::staticMetaObject, #property, object, QVariant::fromValue(own->function()));
#include "PropertyGetters.h"
#undef GETTER
    }

    void enumerationsHaveNames_data()
    {
        properties([](const QMetaProperty &property) { return property.isEnumType(); });
    }

    void enumerationsHaveNames()
    {
        makeRow();
        QVERIFY(m_property.enumerator().keyCount() > 1);
        QVERIFY(m_property.isFlagType() || m_property.enumerator().valueToKey(read().toInt()));
    }
};

LUMQT_TEST_MAIN(TestProperties)
#include "tst_properties.moc"
