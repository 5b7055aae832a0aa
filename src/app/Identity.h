#pragma once

/// The application's identity: what the desktop, the About dialog and the update check go by.
namespace Identity {

inline constexpr const char *Version = "0.7.0.0";
inline constexpr const char *BuildDate = "2026-10-15"; // ISO

/// Sets the names, the domain and the version. To be called before the application object is made.
void apply();

} // namespace Identity
