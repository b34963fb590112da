#include "Page.h"
#include "TestMain.h"

#include <memory>
#include <numeric>

namespace {

// What applications write most often. What has these colours counts for nothing.
constexpr QRgb kGround = 0xfffedcba;
constexpr QRgb kBorder = 0xff0a5b0c;
const QString kRules =
    "QWidget { background: #fedcba }; QLabel { background: #fedcba };"
    "QPushButton { background: #fedcba; padding: 6px }; QFrame { border: 2px solid #0a5b0c };"
    "QLabel { padding: 8px }; QLabel { border: 1px solid #0a5b0c }; QWidget { font: 18px };"
    "* { background: #fedcba; font-size: 16px }; * { border: 1px solid #0a5b0c };"
    "* { padding: 4px ";

using Colors = QHash<QRgb, int>;

// How many pixels have which colour, where a rule's ground lies below: the seams of letters are the same.
Colors colorsOf(QWidget &widget, QWidget::RenderFlags parts = QWidget::DrawChildren)
{
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(kGround);
    if (!image.isNull())
        widget.render(&image, QPoint(), QRegion(), parts);
    Colors colors;
    for (int i = 0; i < image.width() * image.height(); ++i)
        ++colors[image.pixel(i % image.width(), i / image.width())];
    colors.remove(kGround);
    colors.remove(kBorder);
    return colors;
}

// Whether one of the colours is still there, or as much of all: larger letters have other seams.
bool isSeen(const Colors &before, const Colors &now)
{
    for (auto color = before.cbegin(); color != before.cend(); ++color) {
        if (color.value() >= 4 && now.value(color.key()) * 2 >= color.value())
            return true;
    }
    return std::accumulate(now.begin(), now.end(), 0) * 4 >= std::accumulate(before.begin(), before.end(), 0);
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
        for (const PageInfo &page : pages()) {
            const std::unique_ptr<QWidget> root(page.make());
            root->setAttribute(Qt::WA_DontShowOnScreen);
            root->resize(root->sizeHint());
            root->show();
            QVector<QPair<QWidget *, Colors>> ours;
            QMap<QByteArray, int> looked; // at some of each kind
            for (QWidget *widget : root->findChildren<QWidget *>()) {
                const QByteArray kind = widget->metaObject()->className();
                if (!kind.startsWith('C') || kind == "CBPIPAddrEdit" || colorsOf(*widget, {}).isEmpty())
                    continue;
                if (++looked[kind] <= 4)
                    ours.append({widget, colorsOf(*widget)});
            }
            for (const QString &rule : kRules.split("};")) {
                root->setStyleSheet(rule + "}");
                QCoreApplication::processEvents();
                for (const auto &[widget, before] : qAsConst(ours)) {
                    if (!isSeen(before, colorsOf(*widget)))
                        gone << page.id + ": " + widget->metaObject()->className() + " by " + rule;
                }
            }
        }
        QVERIFY2(gone.isEmpty(), qPrintable(gone.join('\n')));
    }
};

LUMQT_TEST_MAIN(TestStyleSheets)
#include "tst_stylesheets.moc"
