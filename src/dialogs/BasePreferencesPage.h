#pragma once

#include <QIcon>
#include <QJsonObject>
#include <QScrollArea>

class QFormLayout;

/// One page of the preferences: a form whose widgets are the only copy of the values.
///
/// Its title is the window title, its icon the window icon.
class BasePreferencesPage : public QScrollArea
{
    Q_OBJECT

public:
    BasePreferencesPage(const QString &title, const QIcon &icon, QWidget *parent = nullptr);

    QString title() const { return windowTitle(); }
    QIcon icon() const { return windowIcon(); }

protected:
    /// The page's form; owned.
    QFormLayout *form() const { return m_form; }
    /// Adds a row of @p field under @p label, which also names it to screen readers.
    void addRow(const QString &label, QWidget *field);
    void addHeader(const QString &title);

private:
    QFormLayout *m_form;

public:
    /// The values of the widgets.
    virtual QJsonObject toJson() const = 0;
    /// Gives the widgets the values of @p values; what is missing or of another type gets its
    /// default.
    virtual void fromJson(const QJsonObject &values) = 0;
};
