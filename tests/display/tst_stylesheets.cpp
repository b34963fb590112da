#include "Page.h"
#include "Pixels.h"
#include "TestMain.h"

#include <memory>

namespace {

// What applications write most often. Its ground counts for nothing, its border as the frame that it
// replaces.
constexpr QRgb kGround = 0xfffedcba;
const QString kRules =
    "QWidget { background: #fedcba }; QLabel { background: #fedcba };"
    "QPushButton { background: #fedcba; padding: 6px }; QFrame { border: 2px solid #0a5b0c };"
    "QLabel { padding: 8px }; QLabel { border: 1px solid #0a5b0c }; QWidget { font: 18px };"
    "* { background: #fedcba; font-size: 16px }; * { border: 1px solid #0a5b0c };"
    "* { padding: 4px ";

using Colors = QHash<QRgb, int>;

int distance(QRgb color)
{
    return qAbs(qGray(color) - qGray(kGround));
}

// How many pixels have which colour, where a rule's ground lies below: the seams of letters are the same.
Colors colorsOf(QWidget &widget, QWidget::RenderFlags parts = QWidget::DrawChildren)
{
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(kGround);
    if (!image.isNull())
        widget.render(&image, QPoint(), QRegion(), parts);
    Colors colors = colorsIn(image, image.rect());
    colors.remove(kGround);
    return colors;
}

// How many pixels stand out from a rule's ground by that much of a colour.
int inkOf(const Colors &colors, int least)
{
    int count = 0;
    for (auto color = colors.cbegin(); color != colors.cend(); ++color)
        count += distance(color.key()) >= least ? color.value() : 0;
    return count;
}

// Whether two fifths of what stood out most are still there: a ground of ours is nothing without its text and
// frame. Of what moves, or padding shortens, it is one.
bool isSeen(const QWidget &widget, const Colors &before, const Colors &now)
{
    const int share = widget.inherits("CBPScrollBar") || widget.inherits("CBPEllipsisGifLabel") ? 1 : 2;
    int most = 0;
    for (auto color = before.cbegin(); color != before.cend(); ++color)
        most = color.value() >= 4 ? qMax(most, distance(color.key())) : most;
    return inkOf(now, most / 2) * 5 >= inkOf(before, most / 2) * share;
}

} // namespace

class TestStyleSheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Whatever the rules of an application paint, nothing of ours is gone behind it. (An octet has nothing of
    // its own but digits.)
    void everyPage()
    {
        QStringList gone;
        int all = 0;
        for (const PageInfo &page : pages()) {
            const std::unique_ptr<QWidget> root(page.make());
            root->setAttribute(Qt::WA_DontShowOnScreen);
            root->resize(root->sizeHint());
            root->show();
            QVector<QPair<QWidget *, Colors>> ours;
            QMap<QByteArray, int> looked; // at some of each kind
            for (QWidget *widget : root->findChildren<QWidget *>()) {
                const QByteArray kind = widget->metaObject()->className();
                if (!kind.startsWith('C') || kind == "CBPIPAddrEdit" || looked[kind] >= 4)
                    continue;
                if (colorsOf(*widget, {}).isEmpty())
                    continue;
                ++looked[kind];
                ours.append({widget, colorsOf(*widget)});
            }
            all += ours.size();
            for (const QString &rule : kRules.split("};")) {
                root->setStyleSheet(rule + "}");
                QCoreApplication::processEvents();
                for (const auto &[widget, before] : qAsConst(ours)) {
                    if (!isSeen(*widget, before, colorsOf(*widget)))
                        gone << page.id + ": " + widget->metaObject()->className() + " by " + rule;
                }
            }
        }
        QVERIFY2(all > 150, QByteArray::number(all));
        QVERIFY2(gone.isEmpty(), qPrintable(gone.join('\n')));
    }
};

LUMQT_TEST_MAIN(TestStyleSheets)
#include "tst_stylesheets.moc"
