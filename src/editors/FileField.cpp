#include "editors/FileField.h"

#include "uikit/FileDialogs.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

FileField::FileField(std::function<void(QFileDialog *)> prepare, QWidget *parent)
    : QWidget(parent)
    , m_prepare(std::move(prepare))
    , m_edit(new QLineEdit(this))
{
    m_edit->setAccessibleName(tr("File name"));
    auto *button = new QToolButton(this);
    button->setText(tr("..."));
    button->setToolTip(tr("Choose a file"));
    button->setAccessibleName(tr("Choose a file"));
    button->setFocusPolicy(Qt::StrongFocus);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit, 1);
    layout->addWidget(button);
    setFocusProxy(m_edit);

    connect(m_edit, &QLineEdit::textChanged, this, &FileField::fileNameChanged);
    connect(button, &QToolButton::clicked, this, &FileField::browse);
}

QString FileField::fileName() const
{
    return m_edit->text();
}

void FileField::setFileName(const QString &fileName)
{
    m_edit->setText(fileName);
}

void FileField::browse()
{
    if (!m_dialog) {
        m_dialog = new QFileDialog(this);
        m_prepare(m_dialog);
        FileDialogs::prepare(m_dialog);
        connect(m_dialog, &QFileDialog::accepted, this, &FileField::takeChoice);
    }
    m_dialog->open();
}

void FileField::takeChoice()
{
    const QStringList files = m_dialog->selectedFiles();
    if (files.size() != 1)
        return;
    setFileName(files.first());
    emit fileChosen();
}
