#pragma once

#include "access/Change.h"

class Surfaces;

/// What can happen to the documents of an open project, whoever does it.
///
/// Each of them may be made at any time; after all of them the project still has every kind of
/// document.
namespace DocumentChanges {

/// Of what is in the documents that the project has.
Changes ofContents(Surfaces &surfaces);
/// Documents that come, come to the front, and go.
Changes ofProject(Surfaces &surfaces);
/// Both.
Changes all(Surfaces &surfaces);

} // namespace DocumentChanges
