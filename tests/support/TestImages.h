#pragma once

#include <QImage>
#include <QStringList>

/// Small pictures written as text, so that a test shows its input and its expectation.
namespace TestImages {

/// An indexed picture from rows of hexadecimal digits, one digit a pixel, with 256 black colours.
QImage indexed(const QStringList &rows);

/// The rows of an indexed picture, one lower-case hexadecimal digit a pixel (the low nibble).
QStringList rows(const QImage &image);

} // namespace TestImages
