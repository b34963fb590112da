#pragma once

class QLayout;
class QWidget;

namespace lumqt {

// Whether `container` can take `widget` in; says in the log when it is the container itself or something
// around it, which Qt would follow in circles. Null cannot be packed.
bool canPack(const QWidget *container, const QWidget *widget);

// The same of all that a layout holds.
bool canPack(const QWidget *container, const QLayout *layout);

} // namespace lumqt
