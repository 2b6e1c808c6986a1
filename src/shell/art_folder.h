// art_folder.h — shell layer: the folder the main window takes its pictures (MDI.BMP) from.
// A build tree keeps them beside the executable; an installed program keeps them in its share
// folder, found relative to the executable so that any install prefix works.
#pragma once

#include <filesystem>

namespace quillon {

// The executable's folder when MDI.BMP is there, else `executableFolder / installedRelative`
// when MDI.BMP is there, else the executable's folder (the window then shows no picture, as
// when the file has been removed).
std::filesystem::path FindArtFolder(const std::filesystem::path& executableFolder,
                                    const std::filesystem::path& installedRelative);

} // namespace quillon
