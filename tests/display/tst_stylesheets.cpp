#include "CBaseWin.h"
#include "CBPMenu.h"
#include "CBPUISyncWaiter.h"
#include "CBPWaiter.h"
#include "CMsgBox.h"
#include "CTextTips.h"
#include "Page.h"
#include "Rows.h"
#include "TestMain.h"

#include <memory>
#include <numeric>

namespace {

// What applications write most often. What has these colours counts for nothing.
const QRgb kGround = 0xfffedcba;
const QRgb kBorder = 0xff0a5b0c;
const char *const kRules[] = {"QWidget { background: #fedcba }",
                              "QLabel { background: #fedcba }",
                              "QPushButton { background: #fedcba; padding: 6px }",
                              "QFrame { border: 2px solid #0a5b0c }",
                              "QLabel { padding: 8px }",
                              "QLabel { border: 1px solid #0a5b0c }",
                              "QWidget { font: 18px }",
                              "* { background: #fedcba; font-size: 16px }",
                              "* { border: 1px solid #0a5b0c }",
                              "* { padding: 4px }"};

using Colors = QHash<QRgb, int>;

// How many pixels have which colour, where a rule's ground lies below: the seams of letters are the same.
Colors colorsOf(QWidget &widget, QWidget::RenderFlags parts = QWidget::DrawChildren)
{
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(kGround);
    if (!image.isNull())
        widget.render(&image, QPoint(), QRegion(), parts);
    Colors colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++colors[image.pixel(x, y)];
    }
    for (const QRgb other : {kGround, kBorder, 0u})
        colors.remove(other);
    return colors;
}

// Whether one of the colours that were there still is, or about as much of all: larger letters have other
// seams.
bool isSeen(const Colors &before, const Colors &now)
{
    const auto sum = [](const Colors &colors) { return std::accumulate(colors.begin(), colors.end(), 0); };
    for (auto color = before.cbegin(); color != before.cend(); ++color) {
        if (color.value() >= 4 && now.value(color.key()) * 2 >= color.value())
            return true;
    }
    return sum(now) * 4 >= sum(before);
}

} // namespace

// Style sheets of an application that know nothing of this library.
class TestStyleSheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyClass_data()
    {
        names("name", {"CMsgBox", "CBaseWin", "CTextTips", "CBPWaiter", "CBPUISyncWaiter", "CBPMenu"});
        for (const PageInfo &page : pages())
            row(qPrintable(page.id), page.id);
    }
    // Whatever a rule paints, nothing of ours is gone behind it. (An octet has nothing of its own but
    // digits.)
    void everyClass()
    {
        QFETCH(QString, name);
        QMap<QString, std::function<QWidget *()>> makers{
            {"CMsgBox", [] { return new CMsgBox; }},
            {"CBaseWin", [] { return new CBaseWin; }},
            {"CTextTips", [] { return new CTextTips(200); }},
            {"CBPWaiter", [] { return new CBPWaiter(nullptr, "Wait", 0, false); }},
            {"CBPUISyncWaiter", [] { return new CBPUISyncWaiter("Wait", nullptr); }},
            {"CBPMenu", [] { return new CBPMenu; }}};
        for (const PageInfo &page : pages())
            makers[page.id] = page.make;
        const std::unique_ptr<QWidget> root(makers[name]());
        root->setAttribute(Qt::WA_DontShowOnScreen);
        root->addAction(new QAction(name, root.get())); // of the menu
        root->resize(root->sizeHint());
        root->show();
        QVector<QPair<QWidget *, Colors>> ours;
        QList<QWidget *> all = root->findChildren<QWidget *>();
        for (QWidget *widget : all << root.get()) {
            const QByteArray kind = widget->metaObject()->className();
            if (kind.startsWith('C') && kind != "CBPIPAddrEdit" && !colorsOf(*widget, {}).isEmpty())
                ours.append({widget, colorsOf(*widget)});
        }
        QStringList gone;
        for (const QString rule : kRules) {
            root->setStyleSheet(rule);
            QCoreApplication::processEvents();
            for (const auto &[widget, before] : qAsConst(ours)) {
                if (!isSeen(before, colorsOf(*widget)))
                    gone << widget->metaObject()->className() + (": " + rule);
            }
        }
        QVERIFY2(gone.isEmpty(), qPrintable(gone.join('\n')));
    }
};

LUMQT_TEST_MAIN(TestStyleSheets)
#include "tst_stylesheets.moc"
