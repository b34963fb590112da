#pragma once

#include <QStringList>

class GalleryWindow;

// Makes the window as high as the page, as far as it can be photographed.
void fitToPage(GalleryWindow &window);

// Writes a picture per page of `pageIds` into the folder `dir` ("push-button.png"), and the list of the files
// as "screenshots.txt" beside them. A page longer than what can be photographed continues in
// "push-button-2.png". Returns what main() returns: 0, or 1 when a file could not be written.
int takeScreenshots(GalleryWindow &window, const QStringList &pageIds, const QString &dir);
