#include "menus/MenuBar.h"
#include "model/Project.h"
#include "uikit/ThemedIcon.h"

#include <QApplication>
#include <QTest>

namespace {

/// When an item can be triggered, with its menu taken into account.
enum When { Always, Never, WithProject, WithDocument };

struct Item
{
    QString text; // empty for a separator
    QKeySequence shortcut = {};
    bool icon = false;
};

const QString Separator;

QList<Item> itemsOf(const QMenu *menu)
{
    QList<Item> items;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions)
        items.append({action->isSeparator() ? Separator : action->text(), action->shortcut(),
                      !action->icon().isNull()});
    return items;
}

QAction *actionOf(const QMenu *menu, const QString &text)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->text() == text && !action->isSeparator())
            return action;
    }
    return nullptr;
}

QMenu *menuOf(const MenuBar &bar, const QString &title)
{
    const QList<QAction *> actions = bar.actions();
    for (const QAction *action : actions) {
        if (action->text() == title)
            return action->menu();
    }
    return nullptr;
}

} // namespace

class tst_MenuBar : public QObject
{
    Q_OBJECT

private slots:
    void theMenusStandInTheOrderOfTheBar();
    void everyItemHasItsTextShortcutAndIcon_data();
    void everyItemHasItsTextShortcutAndIcon();
    void fileItemsBearTheirIcons();
    void whatWorksFollowsTheProject_data();
    void whatWorksFollowsTheProject();
    void shortcutsOfADisabledMenuDoNothing();
    void submenusHoldTheirItems();
    void rolesPlaceTheProgramItems();
    void aNewProjectForgetsPaletteAndMapOfTheOldOne();
};

void tst_MenuBar::theMenusStandInTheOrderOfTheBar()
{
    const MenuBar bar;

    QStringList titles;
    const QList<QAction *> actions = bar.actions();
    for (const QAction *action : actions)
        titles.append(action->text());

    QCOMPARE(titles, QStringList({"File", "Edit", "Palette", "Tiles", "Map", "Sprites", "Image",
                                  "View", "Help"}));
}

void tst_MenuBar::everyItemHasItsTextShortcutAndIcon_data()
{
    using Items = QList<Item>;
    using Key = QKeySequence;
    QTest::addColumn<Items>("expected");

    QTest::newRow("File") << Items{{"New", Key::New, true},
                                   {"Open", Key::Open, true},
                                   {"Recent"},
                                   {"Save", Key::Save, true},
                                   {"Save As", Key::SaveAs, true},
                                   {"Close", Key::Close, true},
                                   {Separator},
                                   {"Preferences"},
                                   {Separator},
                                   {"Quit", {}, true}};
    QTest::newRow("Edit") << Items{{"Cut", Key::Cut},
                                   {"Copy", Key::Copy},
                                   {"Paste", Key::Paste},
                                   {Separator},
                                   {"Select All", Key::SelectAll},
                                   {"Clear Selection", Key::Deselect}};
    QTest::newRow("Palette") << Items{
        {"New Palette", Key("Ctrl+Alt+P")}, {"Import"}, {Separator}, {"No Palette"}, {"Export"}};
    QTest::newRow("Tiles") << Items{{"New Tile Set", Key("Ctrl+Alt+T")},
                                    {Separator},
                                    {"Create Animations"},
                                    {"Swap Palette"},
                                    {"Export"},
                                    {"Export Attributes"},
                                    {"Import"},
                                    {Separator},
                                    {"Next Tile", Key("Ctrl+]")},
                                    {"Previous Tile", Key("Ctrl+[")},
                                    {"Tile List Magnification"}};
    QTest::newRow("Map") << Items{
        {"New Map", Key("Ctrl+Alt+M")}, {Separator}, {"Import"}, {"Export"}};
    QTest::newRow("Sprites") << Items{
        {"New", Key("Ctrl+Shift+B")}, {"Import"}, {Separator}, {"Swap Palette"}, {"Export Data"}};
    QTest::newRow("Image") << Items{{"New Image"}};
    QTest::newRow("View") << Items{{"Window"}, {"Reset Layout"}, {"Status Bar"}};
    QTest::newRow("Help") << Items{{"Check for Updates…"}, {"About"}};
}

void tst_MenuBar::everyItemHasItsTextShortcutAndIcon()
{
    QFETCH(QList<Item>, expected);
    const MenuBar bar;

    const QList<Item> items = itemsOf(menuOf(bar, QTest::currentDataTag()));

    QCOMPARE(items.size(), expected.size());
    for (qsizetype index = 0; index < items.size(); ++index) {
        QCOMPARE(items.at(index).text, expected.at(index).text);
        QCOMPARE(items.at(index).shortcut, expected.at(index).shortcut);
        QCOMPARE(items.at(index).icon, expected.at(index).icon);
    }
}

void tst_MenuBar::fileItemsBearTheirIcons()
{
    MenuBar bar;
    const QPair<const char *, const char *> expected[] = {
        {"New", ":/tb-new-file"},         {"Open", ":/tb-open-file"},
        {"Save", ":/tb-save-file"},       {"Save As", ":/tb-save-file-as"},
        {"Close", ":/tb-close-document"}, {"Quit", ":/tb-exit-application"}};
    const auto picture = [](const QIcon &icon) { return icon.pixmap(24, 24).toImage(); };
    QImage blank(24, 24, QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::transparent);

    for (const auto &[text, path] : expected) {
        const QImage shown = picture(actionOf(bar.fileMenu(), text)->icon());
        QCOMPARE(shown, picture(themedIcon(QString::fromLatin1(path))));
        QVERIFY2(shown.convertToFormat(blank.format()) != blank, path);
    }
}

void tst_MenuBar::whatWorksFollowsTheProject_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("when");

    const auto rows = [](const char *title, When when, const QList<const char *> &items) {
        for (const char *item : items)
            QTest::addRow("%s: %s", title, item) << title << item << int(when);
    };
    rows("File", Always, {"New", "Open", "Recent", "Preferences", "Quit"});
    rows("File", WithProject, {"Save", "Save As", "Close"});
    rows("Edit", Never, {"Cut", "Copy", "Paste", "Select All", "Clear Selection"});
    rows("Palette", WithProject, {"New Palette", "Import"});
    rows("Palette", WithDocument, {"Export"});
    rows("Tiles", WithProject, {"New Tile Set"});
    rows("Tiles", Never, {"Create Animations"});
    rows("Tiles", WithDocument,
         {"Swap Palette", "Export", "Export Attributes", "Next Tile", "Previous Tile"});
    rows("Map", WithProject, {"New Map", "Import"});
    rows("Map", WithDocument, {"Export"});
    rows("Sprites", WithProject, {"New", "Import"});
    rows("Sprites", WithDocument, {"Swap Palette", "Export Data"});
    rows("Image", WithProject, {"New Image"});
    rows("View", Always, {"Window", "Reset Layout", "Status Bar"});
    rows("Help", Never, {"Check for Updates…"});
    rows("Help", Always, {"About"});
}

void tst_MenuBar::whatWorksFollowsTheProject()
{
    QFETCH(QString, title);
    QFETCH(QString, item);
    QFETCH(int, when);
    MenuBar bar;
    QMenu *menu = menuOf(bar, title);
    const QAction *action = actionOf(menu, item);
    const auto works = [&] { return menu->menuAction()->isEnabled() && action->isEnabled(); };
    Project project;

    QCOMPARE(works(), when == Always);
    bar.setProject(nullptr);
    QCOMPARE(works(), when == Always);
    bar.setProject(&project);
    QCOMPARE(works(), when == Always || when == WithProject);

    bar.paletteMenu()->setPalette(project.createPalette(CreateBlank, "P")->id());
    bar.tileMenu()->setTileSetActionsEnabled(true);
    bar.mapMenu()->setMap(QUuid::createUuid());
    bar.spriteMenu()->setSpriteActionsEnabled(true);
    QCOMPARE(works(), when != Never);

    bar.setProject(nullptr);
    QCOMPARE(works(), when == Always);
}

void tst_MenuBar::shortcutsOfADisabledMenuDoNothing()
{
    QWidget window;
    MenuBar bar(&window);
    bar.setProject(nullptr);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    QTest::keyClick(&window, Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(!QApplication::activeModalWidget());

    Project project;
    bar.setProject(&project);
    QTest::keyClick(&window, Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(QApplication::activeModalWidget());
    bar.setProject(nullptr);
}

void tst_MenuBar::submenusHoldTheirItems()
{
    MenuBar bar;

    const QMenu *import = actionOf(bar.tileMenu(), "Import")->menu();
    QCOMPARE(import->actions().size(), 1);
    QCOMPARE(import->actions().at(0)->text(), QString("Spectrum Chars"));
    QCOMPARE(actionOf(bar.tileMenu(), "Tile List Magnification")->menu(),
             bar.tileMenu()->magnificationMenu());

    const QMenu *window = actionOf(bar.viewMenu(), "Window")->menu();
    QCOMPARE(window->actions().size(), 1);
    QCOMPARE(window->actions().at(0)->text(), QString("Scratch Image Editor"));
    QVERIFY(window->actions().at(0)->isCheckable());
    QVERIFY(!window->actions().at(0)->isChecked());
}

void tst_MenuBar::rolesPlaceTheProgramItems()
{
    MenuBar bar;

    QCOMPARE(actionOf(bar.fileMenu(), "Preferences")->menuRole(), QAction::PreferencesRole);
    QCOMPARE(actionOf(bar.fileMenu(), "Quit")->menuRole(), QAction::QuitRole);
    QCOMPARE(actionOf(bar.helpMenu(), "Check for Updates…")->menuRole(), QAction::NoRole);
}

void tst_MenuBar::aNewProjectForgetsPaletteAndMapOfTheOldOne()
{
    MenuBar bar;
    Project first;
    Project second;
    bar.setProject(&first);
    bar.paletteMenu()->setPalette(first.createPalette(CreateBlank, "P")->id());
    bar.mapMenu()->setMap(QUuid::createUuid());

    bar.setProject(&second);

    QVERIFY(bar.paletteMenu()->paletteId().isNull());
    QVERIFY(bar.mapMenu()->mapId().isNull());
}

QTEST_MAIN(tst_MenuBar)
#include "tst_MenuBar.moc"
