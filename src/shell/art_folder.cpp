#include "shell/art_folder.h"

#include "shell/main_window.h"

namespace quillon {

std::filesystem::path FindArtFolder(const std::filesystem::path& executableFolder,
                                    const std::filesystem::path& installedRelative) {
    std::error_code error;
    if (std::filesystem::is_regular_file(executableFolder / kBackgroundFileName, error))
        return executableFolder;
    const std::filesystem::path installed = (executableFolder / installedRelative).lexically_normal();
    if (std::filesystem::is_regular_file(installed / kBackgroundFileName, error)) return installed;
    return executableFolder;
}

} // namespace quillon
