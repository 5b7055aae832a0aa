#include "uikit/Spoken.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QWidget>

namespace {

class SpokenInterface : public QAccessibleWidget
{
public:
    explicit SpokenInterface(QWidget *widget)
        : QAccessibleWidget(widget, QAccessible::Canvas)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value || kind == QAccessible::Description) {
            const auto *spoken = dynamic_cast<const Spoken *>(widget());
            return spoken ? spoken->spokenValue() : QString();
        }
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *const widget = qobject_cast<QWidget *>(object);
    return dynamic_cast<Spoken *>(object) ? new SpokenInterface(widget) : nullptr;
}

} // namespace

Spoken::Spoken()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

Spoken::~Spoken() = default;

QStringList Spoken::orientation(bool rotated, bool flipped, bool mirrored)
{
    QStringList words;
    if (rotated)
        words += QCoreApplication::translate("Spoken", "rotated");
    if (flipped)
        words += QCoreApplication::translate("Spoken", "flipped");
    if (mirrored)
        words += QCoreApplication::translate("Spoken", "mirrored");
    return words;
}

void Spoken::tellChange(QWidget *widget)
{
    if (!QAccessible::isActive())
        return;
    // Bridges take a value event only from a range of numbers.
    QAccessibleEvent event(widget, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}
