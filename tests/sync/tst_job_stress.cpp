#include "CBPJob.h"
#include "Jobs.h"
#include "Later.h"
#include "TestMain.h"

#include <QLoggingCategory>
#include <QRandomGenerator>

#include <memory>

namespace {

constexpr int kJobs = 2000;
constexpr int kLongestMs = 3; // of one of them, and of what ends its wait
constexpr int kDeepest = 6;   // waits within each other

} // namespace

class TestJobStress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const uint seed = qEnvironmentVariable("LUMQT_SEED", "20261127").toUInt();
        m_random.seed(seed);
        qInfo("LUMQT_SEED=%u", seed);
        QLoggingCategory::setFilterRules("lumqtlib.warning=false"); // of those that fail unheard
    }

    // A job that lasts long enough to be seen, for the eyes of the thread sanitizer.
    void shown()
    {
        const auto result = CBPJob::run(nullptr, "Text", [](CBPJobControl &job) {
            for (int i = 0; i < 1200; ++i) {
                job.setProgress(i, 1200);
                job.setText(QString::number(i));
                QThread::msleep(1);
            }
            return job.isCancelled();
        });
        QVERIFY(result.isDone() && !result.value());
    }

    // Whatever ends them, in whatever order, one within the other or not.
    void stress()
    {
        m_told = m_waited = m_left = 0;
        while (m_told + m_waited + m_left < kJobs) {
            const QPointer<QuitWindow> window = new QuitWindow;
            wait(window, 0);
            if (m_random.bounded(3) == 0)
                destroy(window);
            if (m_random.bounded(8) == 0)
                CBPJob::setMaximumRunning(1 + m_random.bounded(6));
            QCoreApplication::processEvents();
            if (window)
                window->deleteLater();
        }
        QCOMPARE(CBPJob::waitForAll(kPatience), QStringList());
        QCoreApplication::processEvents();
        qInfo("%d told, %d waited for, %d left", m_told, m_waited, m_left);
        QVERIFY(m_told > 100 && m_waited > 100 && m_left > 100);
    }

private:
    int random(int below) { return int(m_random.bounded(below)); }

    // A function of any kind.
    std::function<int(CBPJobControl &)> any()
    {
        const int kind = random(5);
        const auto ms = unsigned(random(kLongestMs));
        return [kind, ms, text = QString::number(ms)](CBPJobControl &job) {
            for (int i = 0; i < 20; ++i) {
                job.setProgress(i, 20);
                job.setText(text);
            }
            if (kind == 0) {
                while (!job.isCancelled())
                    QThread::msleep(1);
                return 1;
            }
            QThread::msleep(ms);
            if (kind == 1)
                job.throwIfCancelled();
            if (kind == 2)
                throw std::runtime_error("failed");
            return int(ms);
        };
    }

    void wait(const QPointer<QuitWindow> &window, int depth)
    {
        QPointer<QObject> receiver = new QObject(window);
        CBPJobHandle handle = CBPJob::start(receiver, "Text", any(), [this] { ++m_told; });
        auto sync = std::make_shared<std::unique_ptr<Recorder>>(new Recorder);
        const int ending = random(6);
        QTimer::singleShot(random(kLongestMs), this, [=]() mutable {
            if (depth < kDeepest && window && random(3) > 0)
                wait(window, depth + 1);
            if (ending == 0 && window)
                window->quit();
            else if (ending == 1)
                destroy(window);
            else if (ending == 2)
                sync->reset();
            else if (ending == 3 && *sync)
                (*sync)->breakOff();
            handle.cancel();
            delete receiver.data();
            if (*sync && window) { // it may be one that nothing else ends
                QTimer::singleShot(kLongestMs, this, [=] {
                    if (window)
                        window->quit();
                });
            }
        });
        try {
            const auto result = CBPJob::run(window, "Text", any(), sync->get());
            ++(result.hasValue() ? m_waited : m_left);
        } catch (const std::runtime_error &) {
            ++m_waited;
        }
        sync->reset();
    }

    QRandomGenerator m_random;
    int m_told = 0;
    int m_waited = 0;
    int m_left = 0;
};

LUMQT_TEST_MAIN(TestJobStress)
#include "tst_job_stress.moc"
