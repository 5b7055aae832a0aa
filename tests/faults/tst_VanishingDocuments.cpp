#include "Sweep.h"

#include "access/Surfaces.h"

#include "colour/ColourEditorPopover.h"
#include "editors/AnimationControlWidget.h"
#include "editors/SpriteList.h"
#include "mapeditor/MapAnimator.h"
#include "mapeditor/SpritePropertiesPopover.h"
#include "mapeditor/View.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/Boxes.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

using Button = Tessaril::Ui::ToolButton;
using Node = ProjectTree::ProjectNode;

/// Documents that vanish, in every way there is, under all that shows or edits them: the real
/// window goes on without a warning.
class tst_VanishingDocuments : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void underAnything_data();
    void underAnything();
    void underEachDialog_data();
    void underEachDialog();

private:
    const DocumentViews &views() const { return m_surfaces->views(); }
    Project *project() const { return m_surfaces->project(); }
    MapEditor::View *mapView() const;

    void setUp(const QString &situation);
    void pressEverywhere();
    void letGoEverywhere();
    void playEverything();
    void dragFrom(const char *widget, const std::function<void()> &meanwhile);
    void openPopovers();
    void editEverything();

    void vanish(const QString &way);
    void removeAll(Node kind, bool byTree);
    void goOn();

    std::unique_ptr<Surfaces> m_surfaces;
    std::unique_ptr<ColourEditorPopover> m_colours;
    QList<QPointer<QWidget>> m_pressed;
    QtMessageHandler m_handler = nullptr;
};

namespace {

QStringList s_warnings;

void collect(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtWarningMsg && !message.startsWith(QStringLiteral("This plugin does not support")))
        s_warnings.append(message);
}

const QStringList &ways()
{
    static const QStringList all{"a map deleted in the tree",
                                 "blocks deleted in the tree",
                                 "sprites deleted in the tree",
                                 "tiles deleted in the tree",
                                 "a palette deleted in the tree",
                                 "a map deleted in the project",
                                 "blocks deleted in the project",
                                 "sprites deleted in the project",
                                 "tiles deleted in the project",
                                 "a palette deleted in the project",
                                 "the project closed",
                                 "another project opened",
                                 "the same project opened again",
                                 "a new project made",
                                 "the tabs closed",
                                 "the window gone"};
    return all;
}

/// The documents that hold those of a kind, and it: in the order in which they can be deleted.
QList<Node> upTo(const QString &way)
{
    if (way.startsWith(QLatin1String("a map")))
        return {Node::Map};
    if (way.startsWith(QLatin1String("blocks")))
        return {Node::Map, Node::Objects};
    if (way.startsWith(QLatin1String("sprites")))
        return {Node::Sprites};
    if (way.startsWith(QLatin1String("tiles")))
        return {Node::Map, Node::TileSet};
    return {Node::Map, Node::Sprites, Node::Objects, Node::TileSet, Node::Palette};
}

void send(QWidget *widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
          Qt::MouseButtons held)
{
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

QDialog *visibleDialog()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *widget : windows) {
        auto *const dialog = qobject_cast<QDialog *>(widget);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

/// Each row, or in a short run every so many of them, others in each situation.
bool isRun(qsizetype situation, qsizetype way, int step)
{
    return Sweep::isFull() || (situation + way) % step == 0;
}

} // namespace

void tst_VanishingDocuments::init()
{
    QDir(QDir::homePath() + "/.config").removeRecursively();
    s_warnings.clear();
    m_surfaces = std::make_unique<Surfaces>();
    m_colours = std::make_unique<ColourEditorPopover>(nullptr);
    m_handler = qInstallMessageHandler(collect);
}

void tst_VanishingDocuments::cleanup()
{
    m_colours.reset();
    m_surfaces.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    qInstallMessageHandler(m_handler);
    QCOMPARE(s_warnings.join(QLatin1Char('\n')), QString());
}

MapEditor::View *tst_VanishingDocuments::mapView() const
{
    return qobject_cast<MapEditor::View *>(views().tabs->currentWidget());
}

/// Presses the left button on everything that is drawn on or picked from, and moves.
void tst_VanishingDocuments::pressEverywhere()
{
    m_pressed.clear();
    for (QWidget *widget : m_surfaces->window()->findChildren<QWidget *>()) {
        for (const char *kind :
             {"Canvas", "MapEditor::MapGrid", "FrameEditorWidget", "PaletteGrid", "ColourPalette",
              "NumberRange", "AnimationEditor::FrameEditorWidget"}) {
            if (widget->inherits(kind) && widget->isVisible() && !m_pressed.contains(widget))
                m_pressed.append(widget);
        }
    }
    for (const auto &widget : std::as_const(m_pressed)) {
        const QPoint centre = widget->rect().center();
        send(widget, QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton);
        send(widget, QEvent::MouseMove, centre + QPoint(9, 9), Qt::NoButton, Qt::LeftButton);
    }
}

void tst_VanishingDocuments::letGoEverywhere()
{
    for (const auto &widget : std::as_const(m_pressed)) {
        if (widget)
            send(widget, QEvent::MouseMove, {20, 20}, Qt::NoButton, Qt::LeftButton);
        if (widget)
            send(widget, QEvent::MouseButtonRelease, {20, 20}, Qt::LeftButton, Qt::NoButton);
    }
    m_pressed.clear();
}

void tst_VanishingDocuments::playEverything()
{
    for (int i = 0; i < views().tabs->count(); ++i) {
        views().tabs->setCurrentIndex(i);
        if (auto *const list = views().tabs->currentWidget()->findChild<QListWidget *>())
            list->setCurrentRow(0);
        for (auto *controls :
             views().tabs->currentWidget()->findChildren<AnimationControlWidget *>())
            controls->action(AnimationControlWidget::Play)->trigger();
        if (mapView())
            mapView()->toolPaletteClicked(Button::AnimPlay, true);
    }
}

/// Drags out of the first visible widget of a class; what happens @p meanwhile happens while the
/// drag has the event loop.
void tst_VanishingDocuments::dragFrom(const char *kind, const std::function<void()> &meanwhile)
{
    QPointer<QWidget> source;
    for (QWidget *widget : m_surfaces->window()->findChildren<QWidget *>()) {
        if (!source && widget->inherits(kind) && widget->isVisible())
            source = widget;
    }
    QVERIFY(source);
    bool isDone = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&] {
        if (!isDone) {
            isDone = true;
            meanwhile();
            return;
        }
        // Over whatever is still there; the drag itself listens to the whole program.
        QWidget anywhere;
        send(&anywhere, QEvent::MouseButtonRelease, {1, 1}, Qt::LeftButton, Qt::NoButton);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&anywhere, &escape);
    });
    timer.start(0);
    send(source, QEvent::MouseButtonPress, {6, 6}, Qt::LeftButton, Qt::LeftButton);
    if (source)
        send(source, QEvent::MouseMove, {60, 60}, Qt::NoButton, Qt::LeftButton);
    if (!isDone)
        meanwhile();
    if (source)
        send(source, QEvent::MouseButtonRelease, {60, 60}, Qt::LeftButton, Qt::NoButton);
}

void tst_VanishingDocuments::openPopovers()
{
    if (!project()->maps().first()->sprites().isEmpty())
        mapView()->spritePopover()->showFor(project()->maps().first()->sprites().first(),
                                            mapView()->rect());
    m_colours->openFor(mapView(), QRect(40, 40, 16, 16), Qt::red, false);
    QApplication::processEvents();
}

void tst_VanishingDocuments::editEverything()
{
    const auto tiles = project()->maps().first()->tileSet();
    emit tiles->structureAboutToChange();
    tiles->insertTile(0);
    emit tiles->structureChanged(QStringLiteral("Insert Tile"));
    const auto bank = project()->spriteBanks().first();
    emit bank->structureAboutToChange();
    bank->deleteSprite(0);
    emit bank->structureChanged(QStringLiteral("Delete Sprite"));
    project()->palettes().first()->setColour(3, Qt::red);
    for (int i = 0; i < views().tabs->count(); ++i) {
        views().tabs->setCurrentIndex(i);
        pressEverywhere();
        letGoEverywhere();
    }
}

void tst_VanishingDocuments::setUp(const QString &situation)
{
    if (situation == QLatin1String("playing"))
        playEverything();
    else if (situation == QLatin1String("popovers"))
        openPopovers();
    else if (situation == QLatin1String("edited"))
        editEverything();
    else if (situation.startsWith(QLatin1String("tab"))) {
        views().tabs->setCurrentIndex(situation.right(1).toInt());
        QApplication::processEvents();
        pressEverywhere();
    } else if (situation.startsWith(QLatin1String("tool"))) {
        mapView()->toolPaletteClicked(Button(situation.mid(5).toInt()), true);
        pressEverywhere();
    }
}

void tst_VanishingDocuments::removeAll(Node kind, bool byTree)
{
    QList<QUuid> ids;
    const auto add = [&ids](const auto &documents) {
        for (const auto &document : documents)
            ids.append(document->id());
    };
    if (kind == Node::Map)
        add(project()->maps());
    else if (kind == Node::Objects)
        add(project()->mapObjects());
    else if (kind == Node::Sprites)
        add(project()->spriteBanks());
    else if (kind == Node::TileSet)
        add(project()->tileSets());
    else
        add(project()->palettes());
    for (const QUuid &id : std::as_const(ids)) {
        if (byTree)
            emit views().projectWindow->deleteItemTriggered(kind, id);
        else if (kind == Node::Map)
            project()->deleteMap(id);
        else if (kind == Node::Objects)
            project()->deleteBlocks(id);
        else if (kind == Node::Sprites)
            project()->deleteSpriteBank(id);
        else if (kind == Node::TileSet)
            project()->deleteTileSet(id);
        else
            project()->deletePalette(id);
    }
}

void tst_VanishingDocuments::vanish(const QString &way)
{
    ProjectController *const control = m_surfaces->window()->projectController();
    if (way.contains(QLatin1String("deleted"))) {
        for (const Node kind : upTo(way))
            removeAll(kind, way.endsWith(QLatin1String("tree")));
    } else if (way == QLatin1String("the project closed")) {
        control->close();
    } else if (way == QLatin1String("another project opened")) {
        control->openProject(QStringLiteral(OTHER_EXAMPLE));
    } else if (way == QLatin1String("the same project opened again")) {
        control->openProject(QStringLiteral(EXAMPLE));
    } else if (way == QLatin1String("a new project made")) {
        control->newProject(QStringLiteral("new"));
    } else if (way == QLatin1String("the tabs closed")) {
        views().tabs->closeAll();
    } else {
        m_surfaces->window()->close();
        m_surfaces.reset();
    }
}

/// Ends what had begun, and uses what is left.
void tst_VanishingDocuments::goOn()
{
    QApplication::processEvents();
    letGoEverywhere();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!m_surfaces)
        return;
    EditMenu *const menu = views().menuBar->editMenu();
    for (int i = -1; i < views().tabs->count(); ++i) {
        if (i >= 0)
            views().tabs->setCurrentIndex(i);
        for (QAction *action : menu->actions()) {
            for (int times = action->text().endsWith(QLatin1String("do")) ? 20 : 1; times > 0;
                 --times) {
                if (action->isEnabled() && !action->isSeparator() && !action->menu())
                    action->trigger();
            }
        }
        pressEverywhere();
        letGoEverywhere();
    }
    for (auto *animator : m_surfaces->window()->findChildren<MapEditor::MapAnimator *>())
        animator->tick();
    QVERIFY(!m_surfaces->window()->grab().isNull());
    QTest::qWait(1);
}

void tst_VanishingDocuments::underAnything_data()
{
    QTest::addColumn<QString>("situation");
    QTest::addColumn<QString>("way");
    QStringList situations{"at rest", "playing",         "popovers",
                           "edited",  "dragging a tile", "dragging a sprite"};
    for (int tab = 0; tab < 5; ++tab)
        situations += QStringLiteral("tab %1").arg(tab);
    for (const Button tool :
         {Button::Draw, Button::Line, Button::Rectangle, Button::CircleFill, Button::Select,
          Button::Paste, Button::Fill, Button::Pick, Button::PlaceAnim, Button::PlaceSprite})
        situations += QStringLiteral("tool %1").arg(int(tool));
    for (qsizetype situation = 0; situation < situations.size(); ++situation) {
        for (qsizetype way = 0; way < ways().size(); ++way) {
            if (isRun(situation, way, 12))
                QTest::addRow("%s, %s", qPrintable(situations.at(situation)),
                              qPrintable(ways().at(way)))
                    << situations.at(situation) << ways().at(way);
        }
    }
}

void tst_VanishingDocuments::underAnything()
{
    QFETCH(QString, situation);
    QFETCH(QString, way);
    const Boxes boxes(QMessageBox::Ok);
    if (situation.startsWith(QLatin1String("dragging"))) {
        const bool isTile = situation.endsWith(QLatin1String("tile"));
        const QWidget *bankTab = nullptr;
        for (int i = 0; !isTile && !bankTab && i < views().tabs->count(); ++i) {
            views().tabs->setCurrentIndex(i);
            bankTab = views().tabs->currentWidget()->findChild<SpriteEditor::SpriteList *>();
        }
        QApplication::processEvents();
        // A program in the middle of a drag is not ended.
        dragFrom(isTile ? "TilePickerGrid" : "SpriteEditor::SpriteList",
                 [&] { vanish(way.endsWith("gone") ? ways().at(10) : way); });
    } else {
        setUp(situation);
        vanish(way);
    }

    goOn();
}

void tst_VanishingDocuments::underEachDialog_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("way");
    QDir(QDir::homePath() + "/.config").removeRecursively();
    const Surfaces surfaces;
    qsizetype dialog = 0;
    const auto add = [&dialog](const QString &menu, const QString &item) {
        for (qsizetype way = 0; way < ways().size(); ++way) {
            if (isRun(dialog, way, 16))
                QTest::addRow("%s %s, %s", qPrintable(menu), qPrintable(item),
                              qPrintable(ways().at(way)))
                    << menu << item << ways().at(way);
        }
        ++dialog;
    };
    const QStringList leftOut{"Quit",  "Close",        "Save",       "Undo",
                              "Redo",  "Reset Layout", "Status Bar", "Check for Updates…",
                              "Clear", "Save As",      "Cut",        "Copy",
                              "Paste", "Select All",   "Select None"};
    for (const QAction *menu : surfaces.views().menuBar->actions()) {
        for (const QAction *action : menu->menu()->actions()) {
            if (action->isEnabled() && !action->isSeparator() && !action->menu() &&
                !action->isCheckable() && !leftOut.contains(action->text().section(' ', 0, 0)) &&
                !leftOut.contains(action->text()))
                add(menu->text(), action->text());
        }
    }
    add(QString(), QStringLiteral("Resize"));
    add(QString(), QStringLiteral("Export"));
}

/// The dialog is open while the documents vanish, and is then accepted.
void tst_VanishingDocuments::underEachDialog()
{
    QFETCH(QString, menu);
    QFETCH(QString, item);
    QFETCH(QString, way);
    bool isVanished = false;
    const auto use = [&] {
        QDialog *const dialog = visibleDialog();
        if (!dialog)
            return;
        const QPointer<QDialog> alive(dialog);
        if (!isVanished) {
            isVanished = true;
            vanish(way.endsWith("gone") ? ways().at(10) : way);
        }
        if (alive && !qobject_cast<QFileDialog *>(dialog))
            dialog->accept();
        if (alive)
            dialog->reject(); // if it has found something to ask for
    };
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, use);
    timer.start(0);
    if (menu.isEmpty()) {
        mapView()->toolPaletteClicked(item == "Resize" ? Button::Resize : Button::Save);
    } else {
        for (const QAction *top : views().menuBar->actions()) {
            for (QAction *action : top->menu()->actions()) {
                if (top->text() == menu && action->text() == item)
                    action->trigger();
            }
        }
    }
    QTRY_VERIFY(isVanished || !visibleDialog());
    QTRY_VERIFY(!visibleDialog());

    goOn();
    QTRY_VERIFY(!visibleDialog());
}

QTEST_MAIN(tst_VanishingDocuments)
#include "tst_VanishingDocuments.moc"
