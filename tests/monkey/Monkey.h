#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWindow>

#include <random>

class GalleryWindow;

// Presses keys and the mouse at random, in whatever window of the gallery takes input, resizes it, shows
// other themes and goes from page to page, until its time is over and it has seen every page; then it leaves
// every loop. The same seed does the same as far as the timers of the widgets let it.
class Monkey : public QObject
{
    Q_OBJECT

public:
    Monkey(GalleryWindow &window, unsigned int seed, int seconds);

    void start();
    bool isOver() const { return m_over; }
    int steps() const { return m_steps; }
    int visitedPages() const { return m_visited.size(); }

public Q_SLOTS:
    void ignoreUrl(const QUrl &) {} // links lead out of the program

private:
    void step();
    void act();
    void leave();

    QWindow *inputWindow() const;
    QPoint somewhereIn(const QWindow *window);
    int below(int limit) { return int(m_random() % unsigned(limit)); }

    void mouse(QEvent::Type type, Qt::MouseButton button);
    void click();
    void drag();
    void turnWheel();
    void pressKey();
    void resizeWindow();
    void changePage();
    void changeTheme();
    void askForContextMenu();

    GalleryWindow &m_window;
    std::mt19937 m_random;
    const qint64 m_time; // milliseconds
    QElapsedTimer m_clock;
    QElapsedTimer m_leaving;
    QPointer<QWindow> m_pressedIn;
    QPoint m_at;
    Qt::MouseButtons m_held;
    QStringList m_visited;
    int m_steps = 0;
    bool m_over = false;
};
