#pragma once

#include <QUuid>

/// The reserved ids that palette choosers hold beside those of the project's palettes.
///
/// Each asks the receiver to make a new palette, named as the new document, in place of the chosen
/// one.
namespace PaletteChoice {

/// A new blank palette: the null id.
inline constexpr QUuid NewBlank{};
/// A new palette with the default Next colours: {00000000-0000-0000-0000-000000000001}.
inline constexpr QUuid NewDefault{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};

} // namespace PaletteChoice
