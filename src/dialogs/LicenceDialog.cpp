#include "dialogs/LicenceDialog.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

LicenceDialog::LicenceDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Licence of the icons"));
    QFile file(QStringLiteral(":/Licences/Lucide"));
    QString licence;
    if (file.open(QIODevice::ReadOnly))
        licence = QString::fromUtf8(file.readAll());

    auto *text = new QPlainTextEdit(licence);
    text->setReadOnly(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setAccessibleName(windowTitle());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Ok"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    // The lines of the text end within 80 letters.
    constexpr int Letters = 92; // with the scroll bar and the margins
    constexpr int Lines = 26;
    resize(text->fontMetrics().averageCharWidth() * Letters, text->fontMetrics().height() * Lines);
}
