#include "access/Surfaces.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTest>

#include <set>

namespace {

/// A part that Qt puts into a widget of its own, which speaks for it.
bool isInnerPart(const QWidget *widget)
{
    for (const QWidget *outer = widget->parentWidget(); outer; outer = outer->parentWidget()) {
        if (qobject_cast<const QAbstractSpinBox *>(outer) || qobject_cast<const QComboBox *>(outer))
            return true;
        const auto *area = qobject_cast<const QAbstractScrollArea *>(outer);
        if (area && (widget == area->viewport() || qobject_cast<const QScrollBar *>(widget)))
            return true;
        if (outer->isWindow())
            break;
    }
    return widget->objectName().startsWith(QStringLiteral("qt_"));
}

bool isUsable(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) ||
           (widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy());
}

QString describe(const QWidget *widget)
{
    QString path;
    for (const QWidget *one = widget; one && !one->isWindow(); one = one->parentWidget()) {
        path.prepend(QStringLiteral("/%1%2").arg(
            QString::fromLatin1(one->metaObject()->className()),
            one->objectName().isEmpty() ? QString() : QLatin1Char('#') + one->objectName()));
    }
    return path + QStringLiteral(" ") + widget->accessibleName();
}

QString nameOf(QWidget *widget)
{
    QAccessibleInterface *const spoken = QAccessible::queryAccessibleInterface(widget);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

bool isTabStop(const QWidget *widget)
{
    return widget->isEnabled() && widget->isVisible() && !widget->focusProxy() &&
           (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !isInnerPart(widget);
}

/// A choice among others: arrow keys lead there from the one that is made.
bool isOtherChoice(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    const bool isExclusive =
        button && (button->autoExclusive() || (button->group() && button->group()->exclusive()));
    return isExclusive && !button->isChecked();
}

/// The widget, of those with a place of their own in the tab order, that holds the focus.
const QWidget *tabStopWithFocus()
{
    const QWidget *widget = QApplication::focusWidget();
    while (widget && isInnerPart(widget))
        widget = widget->parentWidget();
    return widget;
}

/// Whether @p action answers its keys while @p focus has the focus.
bool answers(const QAction *action, const QWidget *focus)
{
    if (!action->isEnabled() || action->shortcuts().isEmpty())
        return false;
    for (const QObject *owner : action->associatedObjects()) {
        const auto *widget = qobject_cast<const QWidget *>(owner);
        if (!widget)
            continue;
        switch (action->shortcutContext()) {
        case Qt::ApplicationShortcut:
            return true;
        case Qt::WindowShortcut:
            if (qobject_cast<const QMenu *>(widget) || widget->window() == focus->window())
                return true;
            break;
        case Qt::WidgetWithChildrenShortcut:
            if (widget == focus || widget->isAncestorOf(focus))
                return true;
            break;
        case Qt::WidgetShortcut:
            if (widget == focus)
                return true;
            break;
        }
    }
    return false;
}

/// The keys that two actions would take, one a line.
QStringList doubleKeys(const QWidget *focus)
{
    QHash<QKeySequence, QString> taken;
    QStringList found;
    std::set<const QAction *> seen;
    for (QWidget *widget : QApplication::allWidgets()) {
        for (const QAction *action : widget->actions()) {
            if (!seen.insert(action).second || !answers(action, focus))
                continue;
            for (const QKeySequence &key : action->shortcuts()) {
                if (taken.contains(key))
                    found += QStringLiteral("%1: %2 and %3")
                                 .arg(key.toString(), taken.value(key), action->text());
                taken.insert(key, action->text());
            }
        }
    }
    return found;
}

} // namespace

/// All that can be used in the program has a name, a place in the tab order and keys of its own.
class tst_Access : public QObject
{
    Q_OBJECT

private slots:
    void whatCanBeUsedHasAName();
    void tabReachesWhatTakesTheFocus();
    void noTwoActionsAnswerOneKey();
    void noTwoLabelsOfADialogShareAMnemonic();
};

void tst_Access::whatCanBeUsedHasAName()
{
    Surfaces surfaces;
    QStringList nameless;
    int count = 0;
    surfaces.visitAll([&](const QString &name, QWidget *surface) {
        for (QWidget *widget : Surfaces::shownIn(surface)) {
            if (!isUsable(widget) || isInnerPart(widget))
                continue;
            ++count;
            if (nameOf(widget).isEmpty())
                nameless += name + QStringLiteral(": ") + describe(widget);
        }
    });

    nameless.removeDuplicates();
    QVERIFY(count > 500);
    QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(QLatin1Char('\n'))));
}

void tst_Access::tabReachesWhatTakesTheFocus()
{
    Surfaces surfaces;
    QStringList missed;
    int count = 0;
    surfaces.visitAll([&](const QString &name, QWidget *surface) {
        QSet<const QWidget *> wanted;
        for (const QWidget *widget : Surfaces::shownIn(surface->window())) {
            if (isTabStop(widget) && !isOtherChoice(widget))
                wanted += widget;
        }
        count += int(wanted.size());
        surface->window()->activateWindow();
        const int rounds = 3 * int(wanted.size());
        for (int i = 0; i < rounds && !wanted.isEmpty(); ++i) {
            wanted.remove(tabStopWithFocus());
            QTest::keyClick(surface->window(), Qt::Key_Tab);
        }
        for (const QWidget *widget : std::as_const(wanted)) {
            // Some are off by now, as what deletes a selection that the focus dropped.
            if (isTabStop(widget))
                missed += name + QStringLiteral(": ") + describe(widget);
        }
    });

    missed.removeDuplicates();
    QVERIFY(count > 300);
    QVERIFY2(missed.isEmpty(), qPrintable(missed.join(QLatin1Char('\n'))));
}

void tst_Access::noTwoActionsAnswerOneKey()
{
    Surfaces surfaces;
    QStringList found;
    surfaces.visitAll([&](const QString &name, QWidget *surface) {
        for (const QWidget *widget : Surfaces::shownIn(surface)) {
            if (widget->focusPolicy() == Qt::NoFocus)
                continue;
            for (const QString &line : doubleKeys(widget))
                found += name + QStringLiteral(": ") + line;
        }
    });

    found.removeDuplicates();
    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

void tst_Access::noTwoLabelsOfADialogShareAMnemonic()
{
    Surfaces surfaces;
    QStringList found;
    surfaces.visitDialogs([&](const QString &name, QWidget *surface) {
        QHash<QKeySequence, QString> taken;
        for (const QWidget *widget : Surfaces::shownIn(surface)) {
            QString text;
            if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
                text = button->text();
            else if (const auto *label = qobject_cast<const QLabel *>(widget))
                text = label->buddy() ? label->text() : QString();
            const QKeySequence key = QKeySequence::mnemonic(text);
            if (!key.isEmpty() && taken.contains(key))
                found += QStringLiteral("%1: %2 and %3").arg(name, taken.value(key), text);
            taken.insert(key, text);
        }
    });

    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

QTEST_MAIN(tst_Access)
#include "tst_Access.moc"
