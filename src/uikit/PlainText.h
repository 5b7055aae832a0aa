#pragma once

#include <QString>

/// Texts that users give, in the places where Qt would read them as something else.
namespace PlainText {

/// @p text as a menu or a tab shows it: every ampersand is its own and none marks a key.
QString label(const QString &text);

/// @p text as a tool tip shows it: nothing in it is markup.
QString toolTip(const QString &text);

} // namespace PlainText
