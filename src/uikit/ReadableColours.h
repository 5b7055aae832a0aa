#pragma once

#include <QObject>
#include <QPalette>

/// Keeps the greys of the program's palette readable, whatever the desktop or the style says: some
/// give placeholders, texts that are off and marked items too little contrast.
///
/// It works as long as it lives, also when the desktop changes from light to dark. It brings the
/// ReadableStyle along, which stays.
class ReadableColours : public QObject
{
    Q_OBJECT

public:
    static constexpr double TextContrast = 4.5; // to 1, of placeholders and marked items
    /// To 1, of what is disabled. Thin strokes and the ground of a pressed button take some of it,
    /// and 3 have to be left.
    static constexpr double OffContrast = 4.0;

    explicit ReadableColours(QObject *parent = nullptr);

    /// The contrast of two opaque colours, from 1 to 21.
    static double contrast(const QColor &one, const QColor &other);
    /// @p colours, of which those that stand out too little are changed as far as it takes.
    static QPalette readable(QPalette colours);
    /// The first colour on the way from @p colour to @p strong that has at least the contrast
    /// @p wanted to each of @p grounds, else @p strong.
    static QColor strengthened(const QColor &colour, const QColor &strong,
                               const QList<QColor> &grounds, double wanted);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply();
};
