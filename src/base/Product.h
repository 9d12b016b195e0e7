#pragma once
// The product's names, from which stores, registry keys and windows are named.

namespace ocuva {

/// The application title. It names the program store (title + ".INI") and the registry key of the toolbar
/// layout.
inline constexpr const char* productTitle = "Ocuva";

/// The name of the desktop entry, which relates the program's windows to it.
inline constexpr const char* productDesktopId = "org.ocuva.ocuva";

/// Shown on the splash window and in the about box.
inline constexpr const char* productVersion = OCUVA_VERSION;

/// The organisation's part of the registry key "Software\Brem\" + title.
inline constexpr const char* registryOrganisation = "Brem";

} // namespace ocuva
