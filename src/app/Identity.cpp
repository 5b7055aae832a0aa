#include "app/Identity.h"

#include <QGuiApplication>
#include <QStringList>

#include <algorithm>

namespace {

/// The maker's domain from its end, and the program: the name of the desktop entry and the icon.
QString desktopId()
{
    QStringList parts = QStringLiteral(TESSARIL_ORGANISATION_DOMAIN).toLower().split(u'.');
    std::reverse(parts.begin(), parts.end());
    return parts.join(u'.') + QStringLiteral(".tessaril");
}

} // namespace

void Identity::apply()
{
    const QString name = QStringLiteral("Tessaril");
    const QString version = QString::fromLatin1(Version);
    QCoreApplication::setApplicationName(name);
    QCoreApplication::setOrganizationName(QStringLiteral("Brindlemoor"));
    QCoreApplication::setOrganizationDomain(QStringLiteral(TESSARIL_ORGANISATION_DOMAIN));
    QCoreApplication::setApplicationVersion(version);
    QGuiApplication::setDesktopFileName(desktopId());
    QGuiApplication::setApplicationDisplayName(
        QStringLiteral("%1 v%2 [%3]").arg(name, version, QString::fromLatin1(BuildDate)));
}
