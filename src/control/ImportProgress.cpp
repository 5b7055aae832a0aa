#include "control/ImportProgress.h"

#include <QWindow>

namespace {

constexpr qint64 IntervalMs = 40; // 25 pictures a second

} // namespace

ImportProgress::ImportProgress(QWidget *window, int count)
    : m_dialog(QProgressDialog::tr("Processing image"), QProgressDialog::tr("Cancel"), 0, count)
{
    m_dialog.setCancelButton(nullptr);
    m_dialog.setWindowModality(Qt::WindowModal);
    if (window) {
        // A modal window blocks only those that it stands above.
        window->winId();
        m_dialog.winId();
        m_dialog.windowHandle()->setTransientParent(window->windowHandle());
    }
}

void ImportProgress::setValue(int done)
{
    if (m_sinceShown.isValid() && m_sinceShown.elapsed() < IntervalMs)
        return;
    m_dialog.setValue(done);
    m_sinceShown.start();
}
