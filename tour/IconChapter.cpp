#include "tour/ContactSheet.h"
#include "tour/Tour.h"

void iconChapter(Tour &tour)
{
    tour.beginChapter(QStringLiteral("The program's artwork is laid out"));
    tour.check(ContactSheet::write(tour.folder().path()), QStringLiteral("icons"),
               QStringLiteral("on a light and a dark contact sheet"));
}
