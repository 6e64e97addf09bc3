// Whole-file reading and safe writing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace solvane {

// The file's bytes, or nothing when it cannot be read.
std::optional<std::string> ReadTextFile(const std::filesystem::path& path);

// Splits text into lines at CR LF, LF or CR; a final line end adds no empty line.
std::vector<std::string> SplitLines(std::string_view text);

// Writes to a temporary file in the same folder and renames it into place, so
// a failed write leaves the old file whole. Returns false on failure, with
// the system's reason ("No space left on device") in `reason` when given.
bool WriteFileAtomic(const std::filesystem::path& path, std::string_view content,
                     std::string* reason = nullptr);

// "<path> could not be written: <reason>", the message of a failed write.
std::string WriteFailureText(const std::filesystem::path& path, const std::string& reason);

}  // namespace solvane
