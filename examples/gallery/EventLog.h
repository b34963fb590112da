#pragma once

#include <QWidget>

// The last few signals that live samples sent, the newest on top.
class EventLog : public QWidget
{
public:
    // `hint` stands there until the first signal comes.
    explicit EventLog(const QString &hint, QWidget *parent = nullptr);

    void add(const QString &line);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_hint;
    QStringList m_lines;
    int m_count = 0;
};
