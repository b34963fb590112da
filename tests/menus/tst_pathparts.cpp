#include "CBPComboBox.h"
#include "FormatByteSize.h"
#include "TestMain.h"

#include <QAbstractItemView>
#include <QtTest>
#include <QWheelEvent>

#include <limits>

namespace {

constexpr qint64 kGiga = 1024LL * 1024 * 1024;

} // namespace

class TestPathParts : public QObject
{
    Q_OBJECT

private slots:
    void byteSizes_data()
    {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<bool>("zeroAsKilobytes");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        using Limits = std::numeric_limits<qint64>;
        const struct
        {
            qint64 bytes;
            bool zeroAsKilobytes;
            int decimals;
            const char *text;
        } rows[] = {{0, false, 2, "0 Bytes"},
                    {0, true, 2, "0 KB"},
                    {1, true, 2, "1 Bytes"},
                    {-5, true, 2, "-5 Bytes"},
                    {1023, false, 2, "1023 Bytes"},
                    {1024, false, 2, "1.00 KB"},
                    {1536, false, 2, "1.50 KB"},
                    {1024 * 1024 - 1, false, 2, "1024.00 KB"},
                    {1024 * 1024, false, 0, "1 MB"},
                    {kGiga, false, 2, "1.00 GB"},
                    {1024 * kGiga - 1, false, 1, "1024.0 GB"},
                    {1024 * kGiga, false, 2, "1.00 TB"},
                    {1536, false, -1, "2 KB"},
                    {1536, false, std::numeric_limits<int>::max(), "1.50000000000000000 KB"},
                    {Limits::max(), false, 2, "8388608.00 TB"},
                    {Limits::min(), false, 2, "-9223372036854775808 Bytes"}};
        for (const auto &row : rows)
            QTest::addRow("%s, %d", row.text, row.decimals)
                << row.bytes << row.zeroAsKilobytes << row.decimals << QString(row.text);
    }

    void byteSizes()
    {
        QFETCH(qint64, bytes);
        QFETCH(bool, zeroAsKilobytes);
        QFETCH(int, decimals);
        QTEST(FormatByteSize(bytes, zeroAsKilobytes, decimals), "text");
    }

    void wheelChangesNoChoice()
    {
        QWidget parent;
        auto *box = new CBPComboBox(&parent);
        box->addItems({"a", "b", "c"});
        QCOMPARE(box->view()->metaObject()->className(), "QListView");
        QWheelEvent event(QPointF(5, 5), box->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        event.ignore();
        QCoreApplication::sendEvent(box, &event);
        QCOMPARE(box->currentIndex(), 0);
        QCOMPARE(box->focusPolicy(), Qt::StrongFocus);
        QVERIFY(event.isAccepted());
    }
};

LUMQT_TEST_MAIN(TestPathParts)
#include "tst_pathparts.moc"
