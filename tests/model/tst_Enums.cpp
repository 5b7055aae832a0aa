#include "model/Enums.h"

#include <QMetaEnum>
#include <QTest>

/// Names and numbers cross signals and files, and are read back by both.
class tst_Enums : public QObject
{
    Q_OBJECT

private slots:
    void namesStandForTheirNumbers_data();
    void namesStandForTheirNumbers();
    void theDefaultPositionIsTopCentre();
    void createActionsKeepTheirNumbers();
};

void tst_Enums::namesStandForTheirNumbers_data()
{
    QTest::addColumn<QMetaEnum>("enumeration");
    QTest::addColumn<QByteArray>("names"); // from 0 on
    QTest::newRow("sprite") << QMetaEnum::fromType<Tessaril::Sprite>()
                            << QByteArray("FourBit EightBit");
    QTest::newRow("position") << QMetaEnum::fromType<Tessaril::Position>()
                              << QByteArray("Begin End");
    QTest::newRow("image mode") << QMetaEnum::fromType<Tessaril::ImageMode>()
                                << QByteArray(
                                       "Layer2_256x192 Layer2_320x256 Layer2_640x256 LoRes_128x96");
    QTest::newRow("image type") << QMetaEnum::fromType<Tessaril::Ui::ImageType>()
                                << QByteArray("Ula UlaPlus Offset16 Full256 Undefined");
    QTest::newRow("direction")
        << QMetaEnum::fromType<Tessaril::Ui::Direction>()
        << QByteArray("None North NorthEast East SouthEast South SouthWest West NorthWest");
    QTest::newRow("dialog position") << QMetaEnum::fromType<Tessaril::Ui::DialogPosition>()
                                     << QByteArray("TopCentre RightOf LeftOf Above Below");
    QTest::newRow("tool button")
        << QMetaEnum::fromType<Tessaril::Ui::ToolButton>()
        << QByteArray("Draw Line Rectangle RectangleFill Circle CircleFill Select Paste Fill Pick "
                      "_end_toggles Resize Grid ZoomIn ZoomOut RotateCW RotateCCW MoveUp MoveDown "
                      "MoveLeft MoveRight Cut Copy Crop Erase Flip Mirror PaintPalette Open Save "
                      "AnimPlay AnimStop ExpandToFit PlaceAnim PlaceSprite ShrinkToFit "
                      "ToggleViewport");
}

void tst_Enums::namesStandForTheirNumbers()
{
    QFETCH(QMetaEnum, enumeration);
    QFETCH(QByteArray, names);

    const QByteArrayList expected = names.split(' ');
    for (int number = 0; number < expected.size(); ++number)
        QCOMPARE(enumeration.valueToKey(number), expected.at(number).constData());
    QCOMPARE(enumeration.valueToKey(static_cast<int>(expected.size())), nullptr);
}

void tst_Enums::theDefaultPositionIsTopCentre()
{
    const auto positions = QMetaEnum::fromType<Tessaril::Ui::DialogPosition>();

    QCOMPARE(Tessaril::Ui::DialogPosition::Default, Tessaril::Ui::DialogPosition::TopCentre);
    QCOMPARE(positions.keyToValue("Default"), 0);
}

void tst_Enums::createActionsKeepTheirNumbers()
{
    QCOMPARE(int(CreateEmpty), 0);
    QCOMPARE(int(CreateCopy), 1);
    QCOMPARE(int(CreateDefault), 2);
    QCOMPARE(int(CreateBlank), 3);
}

QTEST_GUILESS_MAIN(tst_Enums)
#include "tst_Enums.moc"
