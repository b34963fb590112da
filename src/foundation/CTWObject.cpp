#include "CTWObject.h"

// Out of line, so that the interface has one home for its type information.
ITWObject::~ITWObject() = default;
