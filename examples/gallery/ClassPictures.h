#pragma once

class GalleryWindow;
class QString;

// Writes a picture of every class that the pages show into `dir`, as NAME.png: the section that has most of
// it. Returns the program's exit code.
int takeClassPictures(GalleryWindow &window, const QString &dir);
