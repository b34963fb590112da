#pragma once

class QString;

// Writes a line for each purpose into `file`: its name and its colours in the library's themes, with tabs
// between them. False when it cannot be written.
bool writeThemeTable(const QString &file);
