#include "foundation/Log.h"

Q_LOGGING_CATEGORY(lcLumQt, "lumqtlib")
