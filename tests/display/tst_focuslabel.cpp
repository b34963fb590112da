#include "Acts.h"
#include "CFoucsLabel.h"
#include "Pixels.h"
#include "Selections.h"
#include "TestMain.h"

#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>

#include <limits>

namespace {

// The label on white, turned back when it is mirrored.
QImage render(CFoucsLabel &label, qreal ratio, bool mirrored)
{
    return pictureOf(label, ratio).mirrored(mirrored, false);
}

// Whether something of the colour, antialiased or not, is in the rectangle of logical pixels.
bool hasInk(const QImage &image, const QRect &where, const QColor &color)
{
    const qreal ratio = image.devicePixelRatio();
    const QRect pixels = QRectF(QPointF(where.topLeft()) * ratio, QSizeF(where.size()) * ratio).toRect();
    for (int y = pixels.top(); y <= pixels.bottom() && y < image.height(); ++y) {
        for (int x = pixels.left(); x <= pixels.right() && x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (qAbs(pixel.red() - color.red()) + qAbs(pixel.green() - color.green()) < 120)
                return true;
        }
    }
    return false;
}

} // namespace

class TestFocusLabel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { selections::setActive(true); }
    void cleanupTestCase() { selections::setActive(false); }

    void tellsOfClicksOnly()
    {
        CFoucsLabel first(QStringLiteral("First"));
        CFoucsLabel second(QStringLiteral("Second"));
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

        click(&first, Click::Left);
        QCOMPARE(firstChanged.takeFirst().value(0).value<CFoucsLabel *>(), &first);
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
        QCOMPARE(face->text(QAccessible::Name), QStringLiteral("First"));
        QVERIFY(face->state().selectable && face->state().selected);
    }

    void looks_data() { scalings(); }

    // Where icon, bar and arrow stand, either way.
    void looks()
    {
        QFETCH(qreal, ratio);
        CFoucsLabel label(QStringLiteral("Title"), 20, 6);
        label.SetColor(Qt::black, Qt::red);
        label.resize(300, 40);
        for (const bool mirrored : {false, true}) {
            label.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            label.SetFocus(false);
            const QImage plain = render(label, ratio, mirrored);
            QVERIFY(!hasInk(plain, QRect(0, 0, 30, 40), Qt::black));
            QVERIFY(hasInk(plain, QRect(32, 0, 40, 40), Qt::black));
            QVERIFY(hasInk(plain, QRect(278, 10, 10, 20), Qt::black));
            label.SetFocus(true);
            const QImage focused = render(label, ratio, mirrored);
            QVERIFY(!hasInk(focused, focused.rect(), Qt::black));
            const QRect strip(0, 0, qRound(10 * ratio), focused.height());
            const QRect bar = boxOf(focused.copy(strip), Qt::red);
            QVERIFY(bar.topLeft() == QPoint(0, 0) && bar.height() == focused.height());
            QVERIFY(qAbs(bar.width() - 3 * ratio) < 1);
            QVERIFY(focused.pixelColor(focused.width() / 2, 2) != QColor(Qt::white)); // its ground
        }
        label.HideTailIcon();
        QVERIFY(!hasInk(render(label, ratio, true), QRect(278, 10, 10, 20), Qt::red));
    }

    void tipOfACutText()
    {
        CFoucsLabel label(QStringLiteral("A title <b>with</b> marks"));
        label.show();
        const auto tip = [&label](int width) {
            label.resize(width, 40);
            QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(&label, &event);
            return QToolTip::text();
        };
        QCOMPARE(tip(100), QStringLiteral("A title &lt;b&gt;with&lt;/b&gt; marks"));
        QTRY_COMPARE(tip(label.sizeHint().width()), QString());
        label.setToolTip(QStringLiteral("The application's"));
        QCOMPARE(tip(100), label.toolTip());
        QToolTip::hideText();
    }

    void sizes()
    {
        CFoucsLabel label(QStringLiteral("A rather long title"), 0, 10);
        const QSize plain = label.sizeHint();
        QVERIFY(label.minimumSizeHint().width() < plain.width());
        const QString icon = QStringLiteral("../res/icon_user.png");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("none\\.png")));
        label.SetIconPath({icon}, {QStringLiteral("none.png"), icon, icon});
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

LUMQT_TEST_MAIN(TestFocusLabel)
#include "tst_focuslabel.moc"
