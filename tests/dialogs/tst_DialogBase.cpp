#include "dialogs/DialogBase.h"

#include "support/DialogDriver.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// Accepts nothing but "yes".
class Question : public DialogBase
{
public:
    explicit Question(QWidget *parent = nullptr)
        : DialogBase(parent)
        , m_answer(new QLineEdit)
    {
        setHeading(QStringLiteral("Is it?"));
        addRow(QStringLiteral("Answer"), m_answer);
    }

    void accept() override
    {
        if (m_answer->text() == QStringLiteral("yes"))
            DialogBase::accept();
        else
            showError(QStringLiteral("Say yes, and say it in a way that leaves no doubt at all"));
    }

    using DialogBase::addRow;
    using DialogBase::showError;

    QLineEdit *const m_answer;
};

} // namespace

class tst_DialogBase : public QObject
{
    Q_OBJECT

private slots:
    void standsTopToBottom();
    void theHeadingIsLargeAndCentred();
    void theErrorLineIsRed();
    void hasOkAsDefaultAndCancel();
    void takesItsTitleFromTheNearestTitledParent();
    void followsTheTitleOfItsParent();
    void anErrorKeepsItOpen();
    void aValidAnswerCloses();
    void cancelCloses();
    void enterIsOk();
    void enterIsOkAfterTheFocusWasOnTheButtons();
    void itsFirstFieldHasTheFocus();
    void itsFirstFieldMayStandInARowOfSeveral();
    void tabGoesToTheCheckedRadioButton();
    void theNextOpeningStartsWithoutAnError();
    void anErrorFixesTheSizeAnew();
    void theMinimumOfASubclassHolds();
    void theRowsNameTheirFields();
};

void tst_DialogBase::standsTopToBottom()
{
    const Question dialog;
    const auto *layout = qobject_cast<QVBoxLayout *>(dialog.layout());

    QVERIFY(layout);
    QCOMPARE(layout->count(), 4);
    QCOMPARE(qobject_cast<QLabel *>(layout->itemAt(0)->widget())->text(), QStringLiteral("Is it?"));
    QVERIFY(qobject_cast<QFormLayout *>(layout->itemAt(1)->layout()));
    QCOMPARE(qobject_cast<QLabel *>(layout->itemAt(2)->widget())->text(), QString());
    QVERIFY(qobject_cast<QDialogButtonBox *>(layout->itemAt(3)->widget()));
    QCOMPARE(layout->stretch(0), 1);
    QCOMPARE(layout->stretch(1), 100);
    QCOMPARE(dialog.contentsMargins(), QMargins(2, 2, 2, 2));
    QVERIFY(dialog.isModal());
    QVERIFY(!dialog.isSizeGripEnabled());
}

void tst_DialogBase::theHeadingIsLargeAndCentred()
{
    const Question dialog;
    const auto *heading = qobject_cast<QLabel *>(dialog.layout()->itemAt(0)->widget());

    QCOMPARE(heading->font().pointSizeF(), dialog.font().pointSizeF() * 1.5);
    QCOMPARE(heading->alignment(), Qt::AlignCenter);
}

void tst_DialogBase::theErrorLineIsRed()
{
    const Question dialog;
    const QPalette palette = dialog.layout()->itemAt(2)->widget()->palette();

    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(palette.color(group, QPalette::WindowText), QColor(0xcc, 0x33, 0x33));
}

void tst_DialogBase::hasOkAsDefaultAndCancel()
{
    const Question dialog;
    const auto *buttons = dialog.findChild<QDialogButtonBox *>();

    QCOMPARE(buttons->orientation(), Qt::Horizontal);
    QCOMPARE(buttons->minimumWidth(), 300);
    QCOMPARE(buttons->buttons().size(), 2);
    QCOMPARE(buttons->button(QDialogButtonBox::Ok)->text(), QStringLiteral("Ok"));
    QVERIFY(buttons->button(QDialogButtonBox::Ok)->isDefault());
    QCOMPARE(buttons->button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Cancel"));
}

void tst_DialogBase::takesItsTitleFromTheNearestTitledParent()
{
    QWidget window;
    window.setWindowTitle(QStringLiteral("Garden"));
    QWidget untitled(&window);

    const Question dialog(&untitled);
    const Question orphan;

    QCOMPARE(dialog.windowTitle(), QStringLiteral("Garden"));
    QCOMPARE(orphan.windowTitle(), QString());
}

void tst_DialogBase::followsTheTitleOfItsParent()
{
    QWidget window;
    window.setWindowTitle(QStringLiteral("Garden"));
    Question dialog(&window);

    window.setWindowTitle(QStringLiteral("Forest"));
    dialog.show();

    QCOMPARE(dialog.windowTitle(), QStringLiteral("Forest"));
}

void tst_DialogBase::anErrorKeepsItOpen()
{
    Question dialog;
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    dialog.show();

    DialogDriver::pressOk(dialog);

    QVERIFY(dialog.isVisible());
    QVERIFY(!dialog.error().isEmpty());
    QCOMPARE(accepted.count(), 0);
}

void tst_DialogBase::aValidAnswerCloses()
{
    Question dialog;
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    dialog.show();

    QTest::keyClicks(dialog.m_answer, QStringLiteral("yes"));
    DialogDriver::pressOk(dialog);

    QVERIFY(!dialog.isVisible());
    QCOMPARE(accepted.count(), 1);
}

void tst_DialogBase::cancelCloses()
{
    Question dialog;
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    dialog.show();

    DialogDriver::pressCancel(dialog);

    QVERIFY(!dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
    QCOMPARE(rejected.count(), 1);
}

void tst_DialogBase::enterIsOk()
{
    Question dialog;
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    dialog.show();

    QTest::keyClicks(dialog.m_answer, QStringLiteral("yes"));
    QTest::keyClick(dialog.m_answer, Qt::Key_Return);

    QCOMPARE(accepted.count(), 1);
}

void tst_DialogBase::tabGoesToTheCheckedRadioButton()
{
    Question dialog;
    auto *const small = new QRadioButton("small", &dialog);
    auto *const large = new QRadioButton("large", &dialog);
    dialog.addRow({}, small);
    dialog.addRow({}, large);
    large->setChecked(true);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));

    QTest::keyClick(dialog.m_answer, Qt::Key_Tab);
    QVERIFY(large->hasFocus());
    QTest::keyClick(large, Qt::Key_Up);
    QVERIFY(small->isChecked());
    dialog.hide();
    large->setChecked(true);
    dialog.show();

    QVERIFY(large->focusPolicy() & Qt::TabFocus);
    QVERIFY(!(small->focusPolicy() & Qt::TabFocus));
}

void tst_DialogBase::theNextOpeningStartsWithoutAnError()
{
    Question dialog;
    dialog.show();
    DialogDriver::pressOk(dialog);
    DialogDriver::pressCancel(dialog);

    dialog.show();

    QCOMPARE(dialog.error(), QString());
}

void tst_DialogBase::anErrorFixesTheSizeAnew()
{
    Question dialog;
    dialog.show();
    const QSize before = dialog.size();
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());

    DialogDriver::pressOk(dialog);

    QVERIFY(dialog.width() > before.width());
    QCOMPARE(dialog.size(), dialog.sizeHint());
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());
    dialog.showError({});
    QCOMPARE(dialog.size(), before);
}

void tst_DialogBase::theMinimumOfASubclassHolds()
{
    Question dialog;
    dialog.setMinimumSize(500, 300);

    dialog.show();
    QCOMPARE(dialog.size(), QSize(500, 300));

    dialog.showError({});
    QCOMPARE(dialog.size(), QSize(500, 300));
}

void tst_DialogBase::theRowsNameTheirFields()
{
    const Question dialog;

    QCOMPARE(DialogDriver::field<QLineEdit>(dialog, QStringLiteral("Answer")), dialog.m_answer);
}

void tst_DialogBase::enterIsOkAfterTheFocusWasOnTheButtons()
{
    Question dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    dialog.m_answer->setText(QStringLiteral("yes"));
    const auto *const buttons = dialog.findChild<QDialogButtonBox *>();
    buttons->button(QDialogButtonBox::Ok)->setFocus();
    buttons->button(QDialogButtonBox::Cancel)->setFocus();
    dialog.m_answer->setFocus();

    QTest::keyClick(dialog.m_answer, Qt::Key_Return);

    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void tst_DialogBase::itsFirstFieldHasTheFocus()
{
    Question dialog;
    dialog.m_answer->setText(QStringLiteral("no"));

    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QVERIFY(dialog.m_answer->hasFocus());
    QCOMPARE(dialog.m_answer->selectedText(), QStringLiteral("no"));

    DialogDriver::pressCancel(dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QVERIFY(dialog.m_answer->hasFocus());
}

void tst_DialogBase::itsFirstFieldMayStandInARowOfSeveral()
{
    class Row : public DialogBase
    {
    public:
        using DialogBase::addRow;
    } dialog;
    dialog.addRow(QStringLiteral("Size"), new QLabel);
    auto *const row = new QWidget;
    auto *const layout = new QVBoxLayout(row);
    auto *const off = new QLineEdit;
    off->setEnabled(false);
    auto *const on = new QLineEdit;
    layout->addWidget(off);
    layout->addWidget(on);
    dialog.addRow(QStringLiteral("File"), row);

    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));

    QVERIFY(on->hasFocus());
}

QTEST_MAIN(tst_DialogBase)
#include "tst_DialogBase.moc"
