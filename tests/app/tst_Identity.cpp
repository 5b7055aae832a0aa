#include "app/Identity.h"

#include <QGuiApplication>
#include <QTest>

class tst_Identity : public QObject
{
    Q_OBJECT

private slots:
    void namesTheApplicationAndItsMaker();
};

void tst_Identity::namesTheApplicationAndItsMaker()
{
    Identity::apply();

    QCOMPARE(QCoreApplication::applicationName(), QString("Tessaril"));
    QCOMPARE(QCoreApplication::organizationName(), QString("Brindlemoor"));
    QCOMPARE(QCoreApplication::organizationDomain(), QString(TESSARIL_ORGANISATION_DOMAIN));
    QCOMPARE(QCoreApplication::applicationVersion(), QString("0.7.0.0"));
    QCOMPARE(QGuiApplication::desktopFileName(), QString("example.brindlemoor.tessaril"));
    QCOMPARE(QGuiApplication::applicationDisplayName(), QString("Tessaril v0.7.0.0 [2026-10-15]"));
}

QTEST_GUILESS_MAIN(tst_Identity)
#include "tst_Identity.moc"
