#include "access/Surfaces.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QRubberBand>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int LeastLetters = 10; // that a field for text shows

QString describe(const QWidget *widget)
{
    const auto *label = qobject_cast<const QLabel *>(widget);
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    return QStringLiteral("%1 \"%2\" in %3")
        .arg(QString::fromLatin1(widget->metaObject()->className()),
             label                                 ? label->text()
             : button && !button->text().isEmpty() ? button->text()
                                                   : widget->accessibleName(),
             QString::fromLatin1(widget->parentWidget()->metaObject()->className()));
}

/// The parts of Qt's own dialogs and containers.
bool isQtsOwn(const QWidget *widget)
{
    for (const QWidget *one = widget; one; one = one->parentWidget()) {
        const bool isDialog = one->inherits("QFileDialog") || one->inherits("QColorDialog") ||
                              one->inherits("QMessageBox");
        if (isDialog || one->objectName().startsWith(QStringLiteral("qt_")))
            return true;
        if (one->isWindow())
            break;
    }
    const QWidget *const parent = widget->parentWidget();
    return parent && (parent->inherits("QTabBar") || qobject_cast<const QComboBox *>(parent) ||
                      qobject_cast<const QAbstractSpinBox *>(parent) ||
                      widget->inherits("QToolBarExtension"));
}

bool isField(const QWidget *widget)
{
    return qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget);
}

QRect inWindow(const QWidget *widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

/// The nearest widget to the right of a label within its row that is a label or a field; null if
/// none is near.
const QWidget *rightOf(const QLabel *label, const QList<QWidget *> &widgets)
{
    constexpr int Near = 40; // pixels
    const QRect own = inWindow(label);
    const QWidget *nearest = nullptr;
    int distance = Near;
    for (const QWidget *widget : widgets) {
        const QRect other = inWindow(widget);
        const bool isCandidate = isField(widget) || qobject_cast<const QLabel *>(widget);
        const int gap = other.left() - own.right();
        if (!isCandidate || isQtsOwn(widget) || gap <= 0 || gap >= distance ||
            other.center().y() < own.top() || other.center().y() > own.bottom())
            continue;
        nearest = widget;
        distance = gap;
    }
    return nearest;
}

/// What kinds of widgets do with the focus; those of Qt's kinds for all of their class.
Qt::FocusPolicy policyOf(const QWidget *widget)
{
    if (qobject_cast<const QAbstractSpinBox *>(widget) || qobject_cast<const QComboBox *>(widget))
        return Qt::WheelFocus;
    if (qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QPushButton *>(widget) ||
        qobject_cast<const QCheckBox *>(widget))
        return Qt::StrongFocus;
    // Tab leads to the choice that is made.
    if (const auto *choice = qobject_cast<const QRadioButton *>(widget))
        return choice->isChecked() ? Qt::StrongFocus : choice->focusPolicy();
    for (const char *name : {"Canvas", "PaletteGrid", "SwatchStrip", "SpriteEditor::SpriteList",
                             "AnimationEditor::FrameEditorWidget"}) {
        if (widget->inherits(name))
            return Qt::StrongFocus;
    }
    // A click on these leaves the focus in what draws with them.
    if (qobject_cast<const QToolButton *>(widget)) {
        const bool isInBar = qobject_cast<const QToolBar *>(widget->parentWidget());
        const bool opensDialog = static_cast<const QToolButton *>(widget)->text() == "...";
        return isInBar ? Qt::NoFocus : opensDialog ? Qt::StrongFocus : Qt::TabFocus;
    }
    if (widget->inherits("TilePickerGrid"))
        return Qt::TabFocus;
    if (widget->inherits("MapEditor::View") || widget->inherits("ImageEditor::View"))
        return Qt::ClickFocus;
    return widget->focusPolicy();
}

/// The texts that a spin box can show.
QStringList textsOf(const QSpinBox *spin)
{
    QStringList texts{spin->specialValueText()};
    for (const int value : {spin->minimum(), spin->maximum()})
        texts += spin->prefix() + QString::number(value) + spin->suffix();
    return texts;
}

int roomFor(const QSpinBox *spin)
{
    const auto *edit = spin->findChild<QLineEdit *>();
    constexpr int EditMargin = 2; // pixels, on either side, within the edit
    return edit->width() - 2 * EditMargin;
}

/// Widgets of one row or panel that are alike.
QList<QToolButton *> iconButtonsIn(const QWidget *parent)
{
    QList<QToolButton *> buttons;
    for (QToolButton *button : parent->findChildren<QToolButton *>(Qt::FindDirectChildrenOnly)) {
        const bool isIcon =
            !button->icon().isNull() && button->toolButtonStyle() == Qt::ToolButtonIconOnly;
        if (button->isVisible() && isIcon && !isQtsOwn(button))
            buttons += button;
    }
    return buttons;
}

} // namespace

/// How forms and panels are made up, over the whole program: what somebody would notice who sees
/// one of them beside the others.
class tst_Forms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_surfaces = std::make_unique<Surfaces>(); }
    void cleanupTestCase() { m_surfaces.reset(); }

    void eachLabelNamesTheFieldBesideIt();
    void eachKindTakesTheFocusInItsWay();
    void iconsHaveToolTips();
    void nothingLiesOverAnother();
    void whatCanBeTypedHasRoom();
    void whatCanBeChosenHasRoom();
    void buttonsOfAPanelAreAlike();
    void windowsHaveTitles();
    void dialogsAreAnsweredAlike();

private:
    using Look = std::function<QString(const QWidget *, const QList<QWidget *> &)>;
    /// Looks at all that is shown in the program, and at least at @p least widgets that it has
    /// something to tell of: a null text says that it has nothing to do with the widget, an empty
    /// one that all is well.
    void lookAtAll(int least, const Look &look);

    std::unique_ptr<Surfaces> m_surfaces;
};

void tst_Forms::lookAtAll(int least, const Look &look)
{
    QStringList problems;
    int count = 0;
    m_surfaces->visitAll([&](const QString &, QWidget *surface) {
        const QList<QWidget *> widgets = Surfaces::shownIn(surface);
        for (const QWidget *widget : widgets) {
            if (isQtsOwn(widget))
                continue;
            const QString problem = look(widget, widgets);
            count += problem.isNull() ? 0 : 1;
            if (!problem.isEmpty())
                problems += problem;
        }
    });

    problems.removeDuplicates();
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    QVERIFY2(count >= least, qPrintable(QString::number(count)));
}

void tst_Forms::eachLabelNamesTheFieldBesideIt()
{
    lookAtAll(20, [](const QWidget *widget, const QList<QWidget *> &all) -> QString {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const QWidget *const field = label ? rightOf(label, all) : nullptr;
        // The fields of a tool bar bear their names themselves.
        if (!field || !isField(field) || qobject_cast<const QToolBar *>(label->parentWidget()))
            return {};
        const QWidget *const buddy = label->buddy();
        const bool isRight = buddy == field || (buddy && buddy->isAncestorOf(field));
        return isRight ? QStringLiteral("") : describe(label) + " beside " + describe(field);
    });
}

void tst_Forms::eachKindTakesTheFocusInItsWay()
{
    lookAtAll(500, [](const QWidget *widget, const QList<QWidget *> &) {
        return widget->focusPolicy() == policyOf(widget)
                   ? QStringLiteral("")
                   : describe(widget) + QStringLiteral(" %1").arg(int(widget->focusPolicy()));
    });
}

void tst_Forms::iconsHaveToolTips()
{
    lookAtAll(50, [](const QWidget *widget, const QList<QWidget *> &) -> QString {
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const auto *tool = qobject_cast<const QToolButton *>(widget);
        if (!button || (qobject_cast<const QCheckBox *>(button) && button->text().isEmpty()))
            return {};
        const bool isIcon =
            tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !button->icon().isNull();
        const QString text = isIcon ? QString() : button->text();
        const bool isWord = std::any_of(text.begin(), text.end(),
                                        [](QChar letter) { return letter.isLetterOrNumber(); });
        if (isWord)
            return {};
        return button->toolTip().isEmpty() ? describe(button) : QStringLiteral("");
    });
}

void tst_Forms::nothingLiesOverAnother()
{
    lookAtAll(500, [](const QWidget *widget, const QList<QWidget *> &) -> QString {
        const QWidget *const parent = widget->parentWidget();
        if (qobject_cast<const QRubberBand *>(widget) || !parent || isQtsOwn(parent))
            return {};
        for (const QWidget *other : parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            const bool isBeside = other == widget || qobject_cast<const QDockWidget *>(other) ||
                                  !other->isVisible() || other->isWindow() ||
                                  qobject_cast<const QRubberBand *>(other) || isQtsOwn(other) ||
                                  !other->geometry().intersects(widget->geometry());
            if (!isBeside)
                return describe(widget) + " and " + describe(other);
        }
        return QStringLiteral("");
    });
}

void tst_Forms::whatCanBeTypedHasRoom()
{
    lookAtAll(20, [](const QWidget *widget, const QList<QWidget *> &) -> QString {
        const QFontMetrics letters = widget->fontMetrics();
        if (const auto *edit = qobject_cast<const QLineEdit *>(widget)) {
            const bool isNumber = edit->parentWidget()->inherits("NumberRange");
            const int wanted = isNumber ? letters.horizontalAdvance("0000 / 0000")
                                        : letters.averageCharWidth() * LeastLetters;
            return edit->width() >= wanted ? QStringLiteral("") : describe(edit);
        }
        const auto *spin = qobject_cast<const QSpinBox *>(widget);
        if (!spin)
            return {};
        for (const QString &text : textsOf(spin)) {
            if (roomFor(spin) < letters.horizontalAdvance(text))
                return describe(spin) + QStringLiteral(" %1 for %2").arg(roomFor(spin)).arg(text);
        }
        return QStringLiteral("");
    });
}

void tst_Forms::whatCanBeChosenHasRoom()
{
    lookAtAll(8, [](const QWidget *widget, const QList<QWidget *> &) -> QString {
        const auto *combo = qobject_cast<const QComboBox *>(widget);
        if (!combo)
            return {};
        QStyleOptionComboBox option;
        option.initFrom(combo);
        const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, combo);
        const int some = combo->fontMetrics().averageCharWidth() * LeastLetters;
        return field.width() >= some ? QStringLiteral("") : describe(combo);
    });
}

void tst_Forms::buttonsOfAPanelAreAlike()
{
    lookAtAll(10, [](const QWidget *widget, const QList<QWidget *> &) -> QString {
        const QList<QToolButton *> buttons = iconButtonsIn(widget);
        if (buttons.size() < 2)
            return {};
        const QToolButton *const first = buttons.first();
        for (const QToolButton *button : buttons) {
            if (button->size() != first->size() || button->iconSize() != first->iconSize() ||
                button->autoRaise() != first->autoRaise())
                return describe(button) + " and " + describe(first);
        }
        return QStringLiteral("");
    });
}

void tst_Forms::windowsHaveTitles()
{
    QStringList untitled;
    int count = 0;
    m_surfaces->visitAll([&](const QString &name, QWidget *surface) {
        if (surface->inherits("Popover"))
            return;
        ++count;
        if (surface->windowTitle().isEmpty())
            untitled += name;
    });

    QVERIFY(count > 30);
    QCOMPARE(untitled, QStringList());
}

void tst_Forms::dialogsAreAnsweredAlike()
{
    QStringList problems;
    int count = 0;
    m_surfaces->visitDialogs([&](const QString &name, QWidget *dialog) {
        auto *const box = dialog->findChild<QDialogButtonBox *>();
        if (!box || isQtsOwn(box))
            return;
        ++count;
        const auto *ok = box->button(QDialogButtonBox::Ok);
        const auto *cancel = box->button(QDialogButtonBox::Cancel);
        if (ok && (ok->text() != "Ok" || !ok->isDefault()))
            problems += name;
        if ((!ok && !box->button(QDialogButtonBox::Save)) || (cancel && cancel->text() != "Cancel"))
            problems += name + " has other buttons";
        if (!qobject_cast<QDialog *>(dialog)->isModal())
            problems += name + " is not modal";
    });

    problems.removeDuplicates();
    QVERIFY(count > 15);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
}

QTEST_MAIN(tst_Forms)
#include "tst_Forms.moc"
