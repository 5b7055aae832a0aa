#include "editors/FileField.h"

#include "support/FileDialogs.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

class tst_FileField : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_field.reset(); }

    void itsPartsAreNamed();
    void theNameTakesTheRoomThatTheButtonLeaves();
    void tabGoesFromTheNameToTheButton();
    void theFocusGoesToTheName();
    void aTypedNameIsTold();
    void theButtonOpensADialogThatIsPreparedOnce();
    void aChosenFileIsTold();
    void aCancelledDialogTellsNothing();

private:
    QLineEdit *edit() const { return m_field->findChild<QLineEdit *>(); }
    QToolButton *button() const { return m_field->findChild<QToolButton *>(); }

    std::unique_ptr<FileField> m_field;
    int m_preparations = 0;
};

void tst_FileField::init()
{
    m_preparations = 0;
    m_field = std::make_unique<FileField>([this](QFileDialog *dialog) {
        ++m_preparations;
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        dialog->setAcceptMode(QFileDialog::AcceptSave);
    });
    m_field->resize(300, 30);
    m_field->show();
    m_field->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_field.get()));
}

void tst_FileField::itsPartsAreNamed()
{
    QCOMPARE(edit()->accessibleName(), QString("File name"));
    QCOMPARE(button()->text(), QString("..."));
    QCOMPARE(button()->toolTip(), QString("Choose a file"));
    QCOMPARE(button()->accessibleName(), QString("Choose a file"));
}

void tst_FileField::theNameTakesTheRoomThatTheButtonLeaves()
{
    QCOMPARE(edit()->x(), 0);
    QVERIFY(edit()->geometry().right() < button()->x());
    QCOMPARE(button()->geometry().right(), m_field->width() - 1);
    QCOMPARE(button()->width(), button()->sizeHint().width());
}

void tst_FileField::tabGoesFromTheNameToTheButton()
{
    edit()->setFocus();

    QTest::keyClick(edit(), Qt::Key_Tab);

    QVERIFY(button()->hasFocus());
    edit()->setFocus();
    QTest::mouseClick(button(), Qt::LeftButton);
    QCOMPARE(m_field->focusWidget(), button());
}

void tst_FileField::theFocusGoesToTheName()
{
    button()->setFocus();

    m_field->setFocus();

    QVERIFY(edit()->hasFocus());
}

void tst_FileField::aTypedNameIsTold()
{
    QSignalSpy changed(m_field.get(), &FileField::fileNameChanged);
    QSignalSpy chosen(m_field.get(), &FileField::fileChosen);

    QTest::keyClicks(edit(), "ab");

    QCOMPARE(changed.count(), 2);
    QCOMPARE(chosen.count(), 0);
    QCOMPARE(m_field->fileName(), QString("ab"));
    m_field->setFileName("c");
    QCOMPARE(edit()->text(), QString("c"));
}

void tst_FileField::theButtonOpensADialogThatIsPreparedOnce()
{
    QCOMPARE(m_preparations, 0);

    for (int i = 0; i < 2; ++i) {
        QTest::mouseClick(button(), Qt::LeftButton);
        QTRY_VERIFY(FileDialogs::visible());
        QCOMPARE(FileDialogs::visible()->acceptMode(), QFileDialog::AcceptSave);
        FileDialogs::cancel(FileDialogs::visible());
        QTRY_VERIFY(!FileDialogs::visible());
    }

    QCOMPARE(m_preparations, 1);
}

void tst_FileField::aChosenFileIsTold()
{
    const QTemporaryDir folder;
    QSignalSpy changed(m_field.get(), &FileField::fileNameChanged);
    QSignalSpy chosen(m_field.get(), &FileField::fileChosen);

    QTest::mouseClick(button(), Qt::LeftButton);
    QTRY_VERIFY(FileDialogs::visible());
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("a.bin"));

    QTRY_COMPARE(chosen.count(), 1);
    QCOMPARE(m_field->fileName(), folder.filePath("a.bin"));
    QCOMPARE(changed.count(), 1);
}

void tst_FileField::aCancelledDialogTellsNothing()
{
    m_field->setFileName("before");
    QSignalSpy chosen(m_field.get(), &FileField::fileChosen);

    QTest::mouseClick(button(), Qt::LeftButton);
    QTRY_VERIFY(FileDialogs::visible());
    FileDialogs::cancel(FileDialogs::visible());
    QTRY_VERIFY(!FileDialogs::visible());

    QCOMPARE(chosen.count(), 0);
    QCOMPARE(m_field->fileName(), QString("before"));
}

QTEST_MAIN(tst_FileField)
#include "tst_FileField.moc"
