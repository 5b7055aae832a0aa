#pragma once

class QEvent;
class QListWidget;

/// Whether @p event, of the list's viewport, is a press of the left button on the item that is
/// current already. The list itself says nothing then.
bool isPressOnCurrentItem(const QListWidget &list, const QEvent &event);
