#pragma once

class Project;

/// Draws and changes whatever a project holds, as views and commands would: what a damaged file put
/// there must not do harm later either.
void useProject(Project *project);
