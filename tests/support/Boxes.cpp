#include "support/Boxes.h"

#include <QApplication>
#include <QPushButton>

Boxes::Boxes(QMessageBox::StandardButton answer)
    : m_answer(answer)
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { answerVisible(); });
    m_timer.start(0);
}

void Boxes::answerVisible()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box)
        return;

    m_texts.append(box->windowTitle() + QStringLiteral(": ") + box->text());
    m_buttons.append(box->standardButtons());
    m_defaults.append(box->standardButton(box->defaultButton()));
    if (m_answer == QMessageBox::NoButton)
        box->close();
    else
        box->button(m_answer)->click();
}
