// Makes the example projects:  tessaril_examples FOLDER
// With a second argument it also saves each as a picture there, to look at.
#include "examples/Examples.h"
#include "examples/Portrait.h"
#include "model/Project.h"

#include <QGuiApplication>
#include <QHashSeed>

#include <cstdio>

int main(int argc, char *argv[])
{
    // The order of documents in a file depends on it.
    QHashSeed::setDeterministicGlobalSeed();
    if (argc < 2) {
        std::fputs("tessaril_examples FOLDER [FOLDER FOR PICTURES]\n", stderr);
        return 2;
    }
    for (const QString &name : Examples::names()) {
        if (!Examples::save(name, QString::fromLocal8Bit(argv[1])))
            return 1;
        if (argc > 2 &&
            !Portrait::save(*Examples::make(name), name, QString::fromLocal8Bit(argv[2])))
            return 1;
    }
    return 0;
}
