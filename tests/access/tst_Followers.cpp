#include "access/DocumentChanges.h"
#include "access/Surfaces.h"
#include "editors/AnimationListWidget.h"
#include "editors/BlockEditorView.h"
#include "editors/SpriteEditorView.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "uikit/CheckList.h"
#include "uikit/Expandable.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QCryptographicHash>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

using AnimationEditor::AnimationListWidget;

namespace {

QString digestOf(const QImage &image)
{
    const QImage picture = image.convertToFormat(QImage::Format_RGB32);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (int y = 0; y < picture.height(); ++y)
        hash.addData(QByteArrayView(picture.constScanLine(y), picture.width() * 4));
    return QString::fromLatin1(hash.result().toHex().left(8));
}

QString itemsOf(const QListWidget *list)
{
    QStringList items;
    for (int i = 0; i < list->count(); ++i) {
        const QListWidgetItem *const item = list->item(i);
        items += QStringLiteral("%1/%2/%3")
                     .arg(item->text(), item->toolTip(),
                          digestOf(item->icon().pixmap(list->iconSize()).toImage()));
    }
    return items.join(QLatin1Char(';'));
}

QString itemsOf(const QComboBox *combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items += combo->itemText(i) +
                 QStringLiteral("=%1").arg(combo->itemData(i, Qt::CheckStateRole).toInt());
    return QStringLiteral("%1 of %2").arg(combo->currentIndex()).arg(items.join(QLatin1Char(';')));
}

QString contentOf(QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->text() + edit->placeholderText();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->text() + QString::number(button->isChecked());
    if (const auto *spin = qobject_cast<const QSpinBox *>(widget))
        return QStringLiteral("%1 to %2").arg(spin->text()).arg(spin->maximum());
    if (const auto *slider = qobject_cast<const QSlider *>(widget))
        return QString::number(slider->value());
    if (const auto *combo = qobject_cast<const QComboBox *>(widget))
        return itemsOf(combo);
    if (const auto *list = qobject_cast<const QListWidget *>(widget))
        return itemsOf(list);
    for (const char *name : {"Canvas", "PaletteGrid", "SwatchStrip", "SpriteEditor::SpriteList",
                             "AnimationEditor::FrameEditorWidget", "TilePickerGrid"}) {
        if (widget->inherits(name)) {
            constexpr int Rows = 150; // pixels, which each of them shows in any layout
            const QRect part(0, 0, widget->width(), std::min(widget->height(), Rows));
            return digestOf(widget->grab(part).toImage());
        }
    }
    return {};
}

/// What can be seen of a widget and all in it, one widget a line.
QStringList seenIn(QWidget *root)
{
    QStringList lines{root->windowTitle()};
    for (QWidget *widget : root->findChildren<QWidget *>()) {
        const bool isQtsOwn = widget->objectName().startsWith(QStringLiteral("qt_"));
        if (isQtsOwn || widget->isWindow() || !widget->isVisibleTo(root) ||
            widget->inherits("QScrollBar"))
            continue;
        lines += QStringLiteral("%1 \"%2\" %3 %4")
                     .arg(QString::fromLatin1(widget->metaObject()->className()),
                          widget->accessibleName(),
                          widget->isEnabledTo(root) ? QString() : QStringLiteral("off"),
                          contentOf(widget));
    }
    return lines;
}

/// The lines that only one of them has.
QString difference(const QStringList &one, const QStringList &other)
{
    QStringList lines;
    for (qsizetype i = 0; i < std::max(one.size(), other.size()); ++i) {
        if (one.value(i) != other.value(i))
            return QStringLiteral("%1 and not %2").arg(one.value(i), other.value(i));
    }
    return {};
}

} // namespace

/// A view that has followed changes of its document shows what one made now shows.
class tst_Followers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_surfaces.reset(); }

    void docksAreAsIfMadeAnew_data();
    void docksAreAsIfMadeAnew();
    void tabsAreAsIfMadeAnew_data();
    void tabsAreAsIfMadeAnew();

private:
    using Maker = std::function<QWidget *()>;
    /// Makes the changes, and tells after which of them @p shown differs from what @p make makes.
    QStringList differences(QWidget *shown, const Maker &make);
    Maker dockMaker(const QString &dock);
    QPointer<TileSet> tiles() const { return m_surfaces->project()->maps().first()->tileSet(); }
    QPointer<SpriteBank> bank() const { return m_surfaces->project()->spriteBanks().first(); }
    QPointer<MapObjects> blocks() const { return m_surfaces->project()->mapObjects().first(); }

    std::unique_ptr<Surfaces> m_surfaces;
    QPointer<Palette> m_palette; // in the palette dock
};

void tst_Followers::init()
{
    m_surfaces = std::make_unique<Surfaces>();
    m_palette = tiles()->palette();
    m_surfaces->window()->documentController()->setActivePalette(m_palette->id());
    for (Expandable *section : m_surfaces->window()->findChildren<Expandable *>())
        section->expand();
    QApplication::processEvents();
}

QStringList tst_Followers::differences(QWidget *shown, const Maker &make)
{
    QStringList found;
    const Changes changes = Changes{{"nothing", [] {}}} + DocumentChanges::ofContents(*m_surfaces);
    for (const Change &change : changes) {
        change.make();
        QApplication::processEvents();
        const std::unique_ptr<QWidget> anew(make());
        anew->resize(shown->size());
        for (Expandable *section : anew->findChildren<Expandable *>())
            section->expand();
        anew->show();
        QApplication::processEvents();
        const QString problem = difference(seenIn(shown), seenIn(anew.get()));
        if (!problem.isEmpty())
            found += change.name + ": " + problem;
    }
    return found;
}

void tst_Followers::docksAreAsIfMadeAnew_data()
{
    QTest::addColumn<QString>("dock");
    for (const char *name : {"paletteWindow", "TileEditor", "SpriteEditor", "TilePickerTool",
                             "TileListWindow", "MapSpritesWindow"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

tst_Followers::Maker tst_Followers::dockMaker(const QString &dock)
{
    const DocumentViews &views = m_surfaces->views();
    const QHash<QString, Maker> makers{
        {"paletteWindow",
         [this] {
             auto *const window = new PaletteWindow;
             window->setPalette(m_palette);
             return window;
         }},
        {"TileEditor",
         [this, &views] {
             auto *const window = new TileWindow;
             window->setPalette(tiles()->palette());
             window->setTileSet(tiles());
             window->setTileIndex(views.tileWindow->tileNumber());
             return window;
         }},
        {"SpriteEditor",
         [this] {
             auto *const window = new SpriteWindow;
             window->setSprites(bank());
             return window;
         }},
        {"TilePickerTool",
         [this, &views] {
             auto *const window = new TilePickerTool;
             window->setTileSet(tiles());
             window->setZoom(views.tilePicker->zoom());
             return window;
         }},
        {"TileListWindow",
         [this] {
             auto *const window = new BlockSelectorWindow;
             window->setTileSet(tiles());
             return window;
         }},
        {"MapSpritesWindow",
         [this] {
             auto *const window = new MapSpritesWindow;
             window->setBanks(m_surfaces->project()->spriteBanks());
             window->showContent();
             return window;
         }},
    };
    return makers.value(dock);
}

void tst_Followers::docksAreAsIfMadeAnew()
{
    QFETCH(QString, dock);
    auto *const shown = m_surfaces->window()->findChild<QDockWidget *>(dock);
    shown->show();
    shown->raise();

    const QStringList found = differences(shown, dockMaker(dock));

    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

void tst_Followers::tabsAreAsIfMadeAnew_data()
{
    QTest::addColumn<bool>("isSprites");
    QTest::newRow("sprites") << true;
    QTest::newRow("blocks") << false;
}

void tst_Followers::tabsAreAsIfMadeAnew()
{
    QFETCH(bool, isSprites);
    const QUuid id = isSprites ? bank()->id() : blocks()->id();
    QWidget *const shown = m_surfaces->views().tabs->documentWidget(id);
    m_surfaces->views().tabs->setCurrentWidget(shown);

    const QStringList found = differences(shown, [this, shown, isSprites] {
        auto *const view = isSprites
                               ? static_cast<QWidget *>(new SpriteEditor::View(bank().data()))
                               : static_cast<QWidget *>(new BlockEditor::View(blocks().data()));
        if (Animation *const chosen = shown->findChild<AnimationListWidget *>()->currentAnimation())
            view->findChild<AnimationListWidget *>()->addAnimation(chosen, true);
        return view;
    });

    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

QTEST_MAIN(tst_Followers)
#include "tst_Followers.moc"
