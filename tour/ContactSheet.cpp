#include "tour/ContactSheet.h"

#include "uikit/ThemedIcon.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>

namespace ContactSheet {

namespace {

constexpr int Columns = 3;
constexpr QSize Cell(420, 56); // pixels
constexpr int LabelWidth = 150;
constexpr int Gap = 12;
constexpr int TitleHeight = 24;

struct Look
{
    int side; // pixels of the layout
    qreal scale;
    QIcon::Mode mode;
};

constexpr Look Looks[] = {
    {16, 1, QIcon::Normal},   {24, 1, QIcon::Normal},   {32, 1, QIcon::Normal},
    {24, 1, QIcon::Disabled}, {24, 1, QIcon::Selected}, {24, 2, QIcon::Normal},
};

QPalette palette(QColor window, QColor text, QColor disabled, QColor highlight)
{
    QPalette result(text, window, window, window, window, text, window);
    result.setColor(QPalette::ButtonText, text);
    result.setColor(QPalette::Disabled, QPalette::ButtonText, disabled);
    result.setColor(QPalette::Highlight, highlight);
    result.setColor(QPalette::HighlightedText, Qt::white);
    return result;
}

void drawCell(QPainter &painter, QPoint at, const QString &path, const QPalette &palette)
{
    painter.setPen(palette.color(QPalette::ButtonText));
    painter.drawText(QRect(at.x() + Gap, at.y(), LabelWidth, Cell.height()), Qt::AlignVCenter,
                     path);

    const QIcon icon = themedIcon(path);
    int x = at.x() + Gap + LabelWidth;
    for (const Look &look : Looks) {
        const int side = qRound(look.side * look.scale); // the sheet itself is at scale 1
        const QRect place(x, at.y() + (Cell.height() - side) / 2, side, side);
        if (look.mode == QIcon::Selected)
            painter.fillRect(place.adjusted(-4, -4, 4, 4), palette.color(QPalette::Highlight));
        painter.drawPixmap(place, icon.pixmap(QSize(side, side), 1.0, look.mode));
        x += side + Gap;
    }
}

} // namespace

QStringList iconPaths()
{
    QStringList paths;
    QDirIterator files(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        QFile file(path);
        if (!path.startsWith(QLatin1String(":/qt-project.org")) && file.open(QIODevice::ReadOnly) &&
            file.peek(4) == "<svg")
            paths << path;
    }
    paths.sort();
    return paths;
}

QPalette lightPalette()
{
    return palette(QColor(0xefefef), QColor(0x202020), QColor(0xa0a0a0), QColor(0x2f6fc0));
}

QPalette darkPalette()
{
    return palette(QColor(0x2b2b2b), QColor(0xe8e8e8), QColor(0x707070), QColor(0x2f6fc0));
}

QImage draw(const QPalette &palette)
{
    const QPalette before = QGuiApplication::palette();
    QGuiApplication::setPalette(palette);

    const QStringList paths = iconPaths();
    const int rows = (int(paths.size()) + Columns - 1) / Columns;
    QImage sheet(Columns * Cell.width(), TitleHeight + rows * Cell.height(), QImage::Format_RGB32);
    sheet.fill(palette.color(QPalette::Window));
    QPainter painter(&sheet);
    painter.setPen(palette.color(QPalette::ButtonText));
    painter.drawText(QRect(Gap, 0, sheet.width(), TitleHeight), Qt::AlignVCenter,
                     QStringLiteral("16, 24, 32, disabled, selected, 24 at scale 2"));
    for (int i = 0; i < paths.size(); ++i) {
        const QPoint at((i / rows) * Cell.width(), TitleHeight + (i % rows) * Cell.height());
        drawCell(painter, at, paths[i], palette);
    }
    painter.end();

    QGuiApplication::setPalette(before);
    return sheet;
}

bool write(const QString &folder)
{
    const QDir target(folder);
    return target.mkpath(QStringLiteral(".")) &&
           draw(lightPalette()).save(target.filePath(QStringLiteral("icons-light.png"))) &&
           draw(darkPalette()).save(target.filePath(QStringLiteral("icons-dark.png")));
}

} // namespace ContactSheet
