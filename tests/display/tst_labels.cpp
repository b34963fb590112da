#include "Acts.h"
#include "Await.h"
#include "CBPDrawLabel.h"
#include "CBPImage.h"
#include "CBPLabel.h"
#include "CBPLine.h"
#include "CFoucsLabel.h"
#include "Pixels.h"
#include "Rows.h"
#include "Selections.h"
#include "Spoken.h"
#include "TestMain.h"

#include "foundation/FontLookup.h"

#include <QFocusFrame>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolTip>

class TestLabels : public QObject
{
    Q_OBJECT

private:
    QString file(const QString &name, int width = 30, int height = 20, const QColor &color = Qt::red)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(color);
        const QString path = m_dir.filePath(name);
        return image.save(path) ? path : QString();
    }

    QTemporaryDir m_dir;

private Q_SLOTS:
    void initTestCase() { selections::setActive(true); }
    void cleanupTestCase() { selections::setActive(false); }

    // Without a size, with one, with a null pointer for the parent, which to the compiler is a number, and
    // with less than none.
    void labelFonts()
    {
        QWidget parent;
        static int warnings = 0;
        const auto handler =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) {
                warnings += text == "CBPLabel: -4 is no font size" ? 1 : 100;
            });
        const auto restore = qScopeGuard([&] { qInstallMessageHandler(handler); });
        for (const auto &[asked, size] : {std::pair(INT_MIN, 12), {20, 20}, {0, 12}, {-4, 12}}) {
            const bool plain = asked == INT_MIN;
            CBPLabel label = plain ? CBPLabel("Text", &parent) : CBPLabel("Text", asked, &parent);
            QCOMPARE(label.font().pixelSize(), size);
            QCOMPARE(label.font().family(), GetFontFamily(1));
            QVERIFY(label.text() == "Text" && label.parentWidget() == &parent);
            const CBPLabel colored("Text", QColor(Qt::blue), plain ? 12 : asked, &parent);
            QCOMPARE(colored.font(), label.font());
            QCOMPARE(colored.palette().color(QPalette::WindowText), QColor(Qt::blue));
            label.setPixelSize(40);
            label.resetPixelSize();
            QCOMPARE(label.font(), colored.font());
        }
        QCOMPARE(warnings, 2);
        QFont font("Any family");
        font.setPixelSize(31);
        parent.setFont(font);
        CBPLabel bare(&parent);
        QCOMPARE(bare.font().pixelSize(), 31);
        for (const int size : {17, 19}) {
            bare.setPixelSize(size);
            QFont heavy = bare.font();
            heavy.setBold(true);
            bare.setFont(heavy);
            for (int time = 0; time < 2; ++time)
                bare.resetPixelSize();
            QCOMPARE(bare.pixelSize(), font.pixelSize());
            font.setPixelSize(size);
            parent.setFont(font); // which it follows again
            QCOMPARE(bare.pixelSize(), size);
            QVERIFY(bare.font().bold());
        }
        bare.SetTextColor(Qt::red);
        bare.SetTextColor(QColor());
        QCOMPARE(bare.palette().color(QPalette::WindowText), QColor(Qt::red));
    }

    void drawnTextIsRead()
    {
        QString text("<b>&</b>"); // no markup
        CBPDrawLabel label(text, Qt::red, true);
        QVERIFY(!label.parentWidget());
        QCOMPARE(spokenName(&label), text);
        QCOMPARE(QAccessible::queryAccessibleInterface(&label)->role(), QAccessible::StaticText);
    }

    void drawnTextChanges()
    {
        QString text("HHHH");
        CBPDrawLabel label(text, Qt::red, true);
        const QSize small = label.sizeHint();
        QFont font(GetFontFamily(1));
        font.setPixelSize(14);
        const QFontMetrics metrics(font);
        const QSize plain = CBPDrawLabel(text, Qt::red, false).sizeHint();
        QCOMPARE(plain, QSize(metrics.horizontalAdvance(text), metrics.height()));
        QCOMPARE(small, plain + QSize(plain.height() + 4, 4)); // the arcs beside it
        QCOMPARE(label.minimumSizeHint(), small);
        label.resize(300, 100);
        QString family = GetFontFamily(1);
        label.SetTextFont(family, 60);
        QVERIFY(label.sizeHint().height() > small.height() * 2);
        const QImage large = pictureOf(label, 1);
        for (const int bad : {0, -3}) {
            QTest::ignoreMessage(QtWarningMsg,
                                 qPrintable(QString("CBPDrawLabel: %1 is no font size").arg(bad)));
            label.SetTextFont(family, bad);
        }
        QCOMPARE(pictureOf(label, 1), large);
        label.SetTextShowColor(Qt::blue);
        QVERIFY(boxOf(pictureOf(label, 1), Qt::red).isEmpty());
        label.SetTextShowColor(QColor()); // as a pen has it
        QCOMPARE(boxOf(pictureOf(label, 1), Qt::black).height(), label.height());
        QString none;
        CBPDrawLabel empty(none, Qt::red, true);
        empty.resize(60, 20);
        QVERIFY(inkOf(pictureOf(empty, 1), 255).isEmpty()); // not even the outline
        QCOMPARE(empty.sizeHint().width(), 0);
    }

    // Whatever a QPixmap takes: a strip, no suffix, that of another kind; and whole whatever a sheet says.
    void imageFiles()
    {
        const QString red = file("red.png");
        const QString strip = file("long.png", 9000, 20);
        const QString broken = m_dir.filePath("broken.png");
        QVERIFY(QFile::copy(strip, strip + ".svg") &&
                QFile::copy(QCoreApplication::applicationFilePath(), broken));
        const std::tuple<QString, QSize, QString> rows[] = {
            {red, {30, 20}, {}},
            {strip, {9000, 20}, {}},
            {strip.chopped(4), {9000, 20}, {}},
            {strip + ".svg", {9000, 20}, {}},
            {QString(), {0, 0}, {}},
            {m_dir.filePath("missing.png"), {0, 0}, "The image %1 is missing"},
            {broken, {0, 0}, "The image %1 cannot be read: Unsupported image format"}};
        for (const auto &[path, size, warning] : rows) {
            CBPImage image(file("before.png", 8, 9, Qt::blue));
            QCOMPARE(boxOf(pictureOf(image, 1), Qt::blue), QRect(0, 0, 8, 9));
            if (!warning.isEmpty())
                QTest::ignoreMessage(QtWarningMsg, qPrintable(warning.arg(path)));
            image.SetImageRes(path);
            QCOMPARE(image.size(), size);
            QCOMPARE(image.minimumSize(), image.maximumSize());
            QCOMPARE(image.pixmap(Qt::ReturnByValue).isNull(), size.isEmpty());
            image.setStyleSheet("QLabel { padding: 8px }");
            QVERIFY(size.isEmpty() || boxOf(pictureOf(image, 1), Qt::red) == image.rect());
        }
        const char *nothing = nullptr;
        QCOMPARE(CBPImage(nothing).size(), QSize(0, 0));
        QCOMPARE(CBPImage(red.toUtf8().constData()).size(), QSize(30, 20));
    }

    void imageClicks_data()
    {
        columns<QString, int>("deeds", "clicks");
        row("let go anywhere", "press out", 1);
        row("right button", "right rightup", 1);
        row("assistive tool", "tool", 1);
        row("double click", "press release double release", 2);
        row("Space", "space spaceup", 1);
        row("Space not let go", "space", 0);
        row("Space that went down elsewhere", "spaceup", 0);
        row("Space that was let go elsewhere", "space focusout spaceup", 0);
        row("Return", "return", 1);
    }
    // Only when it is asked for; then what lies below has no part in it.
    void imageClicks()
    {
        QFETCH(QString, deeds);
        QFETCH(int, clicks);
        QWidget under;
        const EventCounter passedOn(
            &under, {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick});
        auto *image = new CBPImage(file("click.png"));
        image->setParent(&under);
        QSignalSpy spy(image, &CBPImage::sigImgClick);
        const bool mouse = deeds.contains("press") || deeds.contains("right");
        for (const bool clickable : {false, true, false}) {
            const int before = passedOn.count;
            perform(image, deeds.toLatin1());
            QCOMPARE(spy.count(), clickable ? clicks : 0);
            QCOMPARE(passedOn.count - before, mouse && !clickable ? deeds.count(' ') + 1 : 0);
            QCOMPARE(image->cursor().shape(), clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
            image->SetChgCursor(!clickable);
            spy.clear();
        }
        // What listens to it may delete the picture.
        const QPointer<CBPImage> alive = image;
        connect(image, &CBPImage::sigImgClick, this, [alive] { delete alive; });
        image->SetChgCursor(true);
        perform(image, deeds.toLatin1());
        QCOMPARE(!alive, clicks > 0);
    }

    void imageInTheTabOrder()
    {
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *image = new CBPImage(file("click.png"));
        layout->addWidget(new CBPImage(file("still.png")));
        layout->addWidget(image);
        image->SetChgCursor(true);
        showActive(window);
        image->clearFocus(); // the window gave it
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(image->hasFocus());
        const QPointer<QFocusFrame> ring = window.findChild<QFocusFrame *>();
        QVERIFY(ring && ring->isVisible() && ring->geometry().contains(image->geometry()));
        image->SetChgCursor(false);
        QVERIFY(!ring);
        QVERIFY(!image->hasFocus());
    }

    void imageIsRead()
    {
        CBPImage image(file("read.png"));
        image.setToolTip("Change the picture");
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&image);
        const QString press = QAccessibleActionInterface::pressAction();
        for (const bool clickable : {false, true}) {
            image.SetChgCursor(clickable);
            QCOMPARE(reader->role(), clickable ? QAccessible::PushButton : QAccessible::Graphic);
            QCOMPARE(spokenName(&image), QString("Change the picture"));
            QCOMPARE(reader->actionInterface()->actionNames().contains(press), clickable);
        }
        image.setAccessibleName("Picture");
        QCOMPARE(spokenName(&image), QString("Picture"));
        image.setText("<a href='there'>Link</a>"); // as of any label
        image.setFixedSize(image.sizeHint());
        QSignalSpy link(&image, &QLabel::linkActivated);
        QTest::mouseClick(&image, Qt::LeftButton);
        QCOMPARE(link.count(), 1);
    }

    void lineIsARowOrAColumn()
    {
        for (const bool row : {true, false}) {
            const CBPLine line(row, nullptr);
            QCOMPARE(qobject_cast<QHBoxLayout *>(line.layout()) != nullptr, row);
        }
    }

    void focusToldOfClicksOnly()
    {
        CFoucsLabel first("First");
        CFoucsLabel second("Second");
        auto *gone = new CFoucsLabel;
        for (CFoucsLabel *each : {&first, &second})
            each->SetSiblings({&first, nullptr, gone, &second});
        delete gone;
        QSignalSpy firstChanged(&first, &CFoucsLabel::FocusChanged);
        QSignalSpy secondChanged(&second, &CFoucsLabel::FocusChanged);
        const auto heard = selections::during([&] {
            first.SetFocus(true);
            second.SetFocus(true);
            second.SetFocus(true);
        });
        QVERIFY(second.IsFocus() && !first.IsFocus());
        QCOMPARE(heard, (selections::Heard{{&first, QAccessible::SelectionAdd},
                                           {&first, QAccessible::SelectionRemove},
                                           {&second, QAccessible::SelectionAdd}}));
        second.SetFocus(false);
        QVERIFY(!second.IsFocus() && firstChanged.isEmpty() && secondChanged.isEmpty());

        for (const Click how : {Click::Right, Click::Space, Click::Enter, Click::Tool, Click::Left}) {
            click(&first, how);
            QCOMPARE(firstChanged.count(), int(how != Click::Right));
            QCOMPARE(first.IsFocus(), how != Click::Right);
            if (how != Click::Right)
                QCOMPARE(firstChanged.takeFirst().value(0).value<CFoucsLabel *>(), &first);
        }
        sendMouse(second, QEvent::MouseButtonPress);
        sendMouse(second, QEvent::MouseButtonRelease, Qt::LeftButton, QPoint(-5, 5)); // thought better of it
        sendMouse(second, QEvent::MouseButtonRelease);                                // pressed elsewhere
        QTest::keyPress(&second, Qt::Key_Space);
        sendFocus(second, QEvent::FocusOut); // and let go somewhere else
        QTest::keyRelease(&second, Qt::Key_Space);
        sendMouse(second, QEvent::MouseButtonPress);
        QHideEvent hide; // the release is not for it
        QCoreApplication::sendEvent(&second, &hide);
        sendMouse(second, QEvent::MouseButtonRelease);
        second.setEnabled(false);
        click(&second, Click::Tool);
        QVERIFY(secondChanged.isEmpty() && first.IsFocus());
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&first);
        QCOMPARE(face->role(), QAccessible::PageTab);
        QCOMPARE(face->text(QAccessible::Name), "First");
        QVERIFY(face->state().selectable && face->state().selected);
    }

    // What changes the look is on the screen at once, with the ground of the state; what changes the size
    // finds room.
    void changesShow()
    {
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *label = new CFoucsLabel("Title");
        QString words("NEW"), family("Any family");
        auto *drawn = new CBPDrawLabel(words, Qt::red, true);
        layout->addWidget(drawn);
        layout->addWidget(label);
        window.show();
        EventCounter paints(&window, {QEvent::UpdateRequest});
        EventCounter layouts(&window, {QEvent::LayoutRequest});
        const Deeds sizes{{"text", [&] { label->ChangeText("Another title"); }},
                          {"icons", [&] { label->SetIconPath({"../res/icon_user.png"}, {}); }},
                          {"notail", [&] { label->HideTailIcon(); }},
                          {"tail", [&] { label->setTailIconVisible(true); }},
                          {"font", [&] { drawn->SetTextFont(family, 20); }}};
        Deeds own = sizes;
        own["ink"] = [&] { drawn->SetTextShowColor(Qt::blue); };
        own["colours"] = [&] { label->SetColor(Qt::black, Qt::red); };
        own["choose"] = [&] { label->SetFocus(true); };
        const QColor none(Qt::white), chosen(255, 231, 231), pressed(255, 215, 215), disabled(245, 246, 247);
        const std::pair<QByteArray, QColor> rows[] = {
            {"text", none},       {"icons", none},     {"notail", none},   {"tail", none},
            {"font", none},       {"ink", none},       {"colours", none},  {"choose", chosen},
            {"press", pressed},   {"release", chosen}, {"space", pressed}, {"spaceup", chosen},
            {"focusout", chosen}, {"focusin", chosen}, {"press", pressed}, {"disable", disabled}};
        for (const auto &[deed, ground] : rows) {
            QCoreApplication::processEvents();
            paints.count = layouts.count = 0;
            perform(label, deed, own);
            AWAIT(paints.count > 0);
            QVERIFY2((layouts.count > 0) == sizes.contains(deed), deed);
            const QColor seen = pictureOf(*label, 1).pixelColor(label->width() / 2, 5);
            QVERIFY2(seen == ground, deed + ' ' + seen.name().toLatin1());
        }
        QCOMPARE(label->Text(), QString("Another title"));
        label->setEnabled(true);
        perform(label, "release"); // a pointer that is held down goes on no other widget
        const auto point = [&](QWidget *at) {
            QTest::mouseMove(window.windowHandle(), at->mapTo(&window, at->rect().center()));
        };
        point(drawn);
        QVERIFY(repaints(*label, [&] { point(label); }));
        QVERIFY(repaints(*label, [&] { point(drawn); }));
    }

    // From right to left, the arrow stands as in a mirror.
    void mirroredTitle()
    {
        CFoucsLabel label({}, 20, 6);
        label.resize(300, 40);
        const QImage plain = pictureOf(label, 2);
        label.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(pictureOf(label, 2).mirrored(true, false), plain);
    }

    void tipOfACutText()
    {
        QWidget window;
        window.setToolTip("The window's");
        CFoucsLabel label("A title <b>with</b> marks");
        label.setParent(&window);
        window.show();
        const auto tip = [&label](int width) {
            label.resize(width, 40);
            QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(&label, &event);
            return QToolTip::text();
        };
        QCOMPARE(tip(100), "<p>A title &lt;b&gt;with&lt;/b&gt; marks</p>");
        QCOMPARE(tip(label.sizeHint().width()), window.toolTip());
        label.setToolTip("The application's");
        QCOMPARE(tip(100), label.toolTip());
        QToolTip::hideText();
    }

    void focusSizes()
    {
        CFoucsLabel label("A rather long title", 0, 10);
        const QSize plain = label.sizeHint();
        QVERIFY(label.minimumSizeHint().width() < plain.width() && plain.height() == 36);
        const QString icon = "../res/icon_user.png";
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("none\\.png"));
        label.SetIconPath({icon}, {"none.png", icon, icon});
        const int width = QImage(icon).width();
        QCOMPARE(label.sizeHint().width(), plain.width() + width + 10 + width - 10); // instead of our arrow
        label.resize(1, 1);
        label.grab();
        CFoucsLabel huge(QString(1000000, QLatin1Char('W')), std::numeric_limits<int>::max(),
                         std::numeric_limits<int>::min());
        QVERIFY(huge.sizeHint().isValid());
        huge.resize(80, 30);
        huge.grab();
    }
};

LUMQT_TEST_MAIN(TestLabels)
#include "tst_labels.moc"
