#include "app/Identity.h"

#include <QGuiApplication>

void Identity::apply()
{
    const QString name = QStringLiteral("Tessaril");
    const QString version = QString::fromLatin1(Version);
    QCoreApplication::setApplicationName(name);
    QCoreApplication::setOrganizationName(QStringLiteral("Brindlemoor"));
    QCoreApplication::setOrganizationDomain(QStringLiteral(TESSARIL_ORGANISATION_DOMAIN));
    QCoreApplication::setApplicationVersion(version);
    QGuiApplication::setApplicationDisplayName(
        QStringLiteral("%1 v%2 [%3]").arg(name, version, QString::fromLatin1(BuildDate)));
}
