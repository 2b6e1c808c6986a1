// Where the main window's picture is looked for: beside the executable in a build tree, in the
// share folder of an installed program.
#include "shell/art_folder.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/temp_dir.h"

namespace quillon {
namespace {

TEST(ArtFolder, BesideTheProgramElseTheInstalledShareFolder) {
    struct Case {
        const char* why;
        std::vector<const char*> files; // under the prefix; a name ending in '/' is a folder
        const char* found;              // relative to the prefix
    } cases[] = {
        {"build tree: the picture beside the program", {"bin/MDI.BMP"}, "bin"},
        {"installed: the picture in share/quillon", {"share/quillon/MDI.BMP"}, "share/quillon"},
        {"a copy beside the program wins over the installed one",
         {"bin/MDI.BMP", "share/quillon/MDI.BMP"},
         "bin"},
        {"no picture anywhere: the program's folder, which shows none", {"share/quillon/banner.png"}, "bin"},
        {"a folder of that name is no picture", {"bin/MDI.BMP/", "share/quillon/MDI.BMP"}, "share/quillon"},
        {"the name is matched exactly", {"share/quillon/mdi.bmp"}, "bin"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        TempDir prefix;
        std::filesystem::create_directories(prefix.Path() / "bin");
        for (const std::string file : c.files) {
            const auto path = prefix.Path() / file;
            if (file.back() == '/') {
                std::filesystem::create_directories(path);
                continue;
            }
            std::filesystem::create_directories(path.parent_path());
            std::ofstream(path) << "BM";
        }
        EXPECT_EQ(FindArtFolder(prefix.Path() / "bin", "../share/quillon"), prefix.Path() / c.found);
    }
}

} // namespace
} // namespace quillon
