#pragma once

#include <memory>

class Project;

/// Ids that depend on nothing but names, so that a project made twice is the same twice.
namespace StableIds {

/// The same project with the ids of all documents, animations and frames made from their kinds and
/// names, which must differ within a kind. Null if the copy cannot be made.
std::unique_ptr<Project> copyOf(const Project &project);

} // namespace StableIds
