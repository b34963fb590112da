#pragma once

#include "CBPLabel.h"

namespace lumqt {

// A label with a movie that plays while it shows and rests otherwise, so that nothing is decoded for nobody.
// On dense screens "name@2x.gif" beside "name.gif" is taken, and drawn in the same size. With another theme
// its picture goes on where that of the last one was.
class MovieLabel : public CBPLabel
{
public:
    MovieLabel(const QString &path, QWidget *parent);

    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QString wantedFile(bool &isDense) const;
    void load();
    void renew();

    QString m_path;
    QString m_loaded; // the file that plays
    QSize m_size;     // logical, of a picture
};

} // namespace lumqt
