#pragma once

class Project;

/// What each example project is filled with.
namespace Examples {

/// A platform level of two screens by night, with animated blocks, sprites and tile attributes.
void makeLevel(Project *project);
/// An island seen from above.
void makeIsland(Project *project);
/// A Layer 2 title picture.
void makeTitle(Project *project);

} // namespace Examples
