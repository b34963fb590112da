#pragma once

class QDesignerFormEditorInterface;

// Tells Designer of the pages of tab containers, and of the one page that a framed window has. Once per
// Designer.
void registerPageExtensions(QDesignerFormEditorInterface *core);
