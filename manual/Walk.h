#pragma once

#include "tour/WindowTour.h"

#include <QDir>

/// What the manual tells, done in the real window, with a picture of each step.
class Walk
{
public:
    /// @p examples holds the example projects; pictures, pages and exports go to @p folder.
    Walk(const QDir &examples, const QDir &folder);

    /// Goes through all chapters; the number of steps that failed.
    int run();

private:
    MainWindow &window() { return m_hands.window(); }
    const DocumentViews &views() const { return m_hands.views(); }

    void open(const QString &example);
    /// Double-clicks the item of that name below a group of the project tree.
    void openInTree(const QString &group, const QString &name);
    void fitMap();
    void picture(const QString &name, QWidget *widget = nullptr);

    void makeProject();
    void importPicture();
    void showPalette();
    void showTiles();
    void showMap();
    void showBlocks();
    void showSprites();
    void showImage();
    void exportFiles();
    void exportMap();
    void exportPalette(const QString &palette, const QString &file);
    void showPreferences();
    void writeShortcuts();

    QDir m_examples;
    QDir m_folder;
    Tour m_tour;
    WindowTour m_hands;
};
