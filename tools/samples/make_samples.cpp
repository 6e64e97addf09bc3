// solvane-make-samples: makes the bundled sample projects through the
// program's own screens' controllers and writes them to a folder.
//
//   solvane-make-samples <data folder> <output folder>
//
// The data folder is the program's (data/ of the source tree); it is copied
// to a scratch folder for each sample and never written. Running it again
// gives the same bytes.
#include <filesystem>
#include <iostream>

#include "core/text_file.h"
#include "tools/samples/sample_builder.h"

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    using namespace solvane;
    if (argc != 3) {
        std::cerr << "usage: solvane-make-samples <data folder> <output folder>\n";
        return 2;
    }
    try {
        const auto definitions = samples::BundledSamples();
        const auto texts = samples::MakeAllSamples(argv[1]);
        const fs::path out = argv[2];
        fs::create_directories(out);
        for (std::size_t i = 0; i < definitions.size(); ++i) {
            const fs::path path = out / definitions[i].fileName;
            if (!WriteFileAtomic(path, texts[i]))
                throw std::runtime_error("cannot write " + path.string());
            std::cout << path.string() << "\n";
        }
    } catch (const std::exception& e) {
        std::cerr << "solvane-make-samples: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
