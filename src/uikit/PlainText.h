#pragma once

#include <QString>

/// Texts that users give, in the places where Qt would read them as something else.
namespace PlainText {

/// A name as it is shown: as it is, but of a very long one the beginning, which takes Qt no seconds
/// to lay out.
QString shown(const QString &name);

/// @p text as a menu or a tab shows it, shortened too: every ampersand is its own and none marks a
/// key.
QString label(const QString &text);

/// @p text as a tool tip shows it: nothing in it is markup.
QString toolTip(const QString &text);

} // namespace PlainText
