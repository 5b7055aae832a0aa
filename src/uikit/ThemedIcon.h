#pragma once

#include <QIcon>

/// The program icon at the resource @p path (":/Paint"), in the colours of the application palette.
///
/// Null if there is no such resource. The icon follows later changes of the palette by itself.
QIcon themedIcon(const QString &path);
