#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

class QWidget;

/// Shows how far an import is, keeps every other command from starting, and cannot be cancelled.
///
/// Lives on the stack of the import. It has no parent but stays above @p window and blocks it.
class ImportProgress
{
public:
    /// @p count is the number of squares to process.
    ImportProgress(QWidget *window, int count);

    /// Takes @p done of them. Telling the dialog runs the event loop and repaints, so it hears of
    /// it only so often.
    void setValue(int done);

private:
    QProgressDialog m_dialog;
    QElapsedTimer m_sinceShown;
};
