#include "dialogs/BasePreferencesPage.h"

#include "uikit/SectionHeader.h"

#include <QFormLayout>

BasePreferencesPage::BasePreferencesPage(const QString &title, const QIcon &icon, QWidget *parent)
    : QScrollArea(parent)
{
    constexpr QMargins Margins{5, 2, 5, 2};
    constexpr int Spacing = 5; // pixels
    setWindowTitle(title);
    setAccessibleName(title);
    setWindowIcon(icon);
    setWidgetResizable(true);

    auto *content = new QWidget;
    m_form = new QFormLayout(content);
    m_form->setContentsMargins(Margins);
    m_form->setSpacing(Spacing);
    m_form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    setWidget(content);
}

void BasePreferencesPage::addRow(const QString &label, QWidget *field)
{
    field->setAccessibleName(label);
    m_form->addRow(label, field);
}

void BasePreferencesPage::addHeader(const QString &title)
{
    m_form->addRow(new SectionHeader(title));
}
