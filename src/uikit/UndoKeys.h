#pragma once

class QWidget;

/// Who gets the keys of Undo and Redo.
namespace UndoKeys {

/// Leaves them to the Edit menu while @p field, which edits a document, has the focus. Else a field
/// with a line to type into would keep them for its digits, long after these have become a step of
/// the document.
void leaveToMenu(QWidget *field);

} // namespace UndoKeys
