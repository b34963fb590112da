#pragma once

#include <QLoggingCategory>

// What an application programmer should hear of: the category "lumqtlib".
Q_DECLARE_LOGGING_CATEGORY(lcLumQt)
