#pragma once

#include <QWidget>

class QVBoxLayout;

namespace lumqt {

// The ground that the rows of a path list lie on: to screen readers a list of them, from top to bottom.
class PathRows : public QWidget
{
    Q_OBJECT

public:
    explicit PathRows(QWidget *parent = nullptr);

    // Holds the rows, the top one first, and a spacer at its end.
    QVBoxLayout *rows() const { return m_layout; }

private:
    QVBoxLayout *m_layout;
};

} // namespace lumqt
