#include "core/text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

namespace solvane {

std::optional<std::string> ReadTextFile(const std::filesystem::path& path) {
    // A folder opens as a stream on this system and reads as nothing.
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream ss;
    ss << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return ss.str();
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            lines.emplace_back(text.substr(start, i - start));
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
            start = i + 1;
        }
    }
    if (start < text.size()) lines.emplace_back(text.substr(start));
    return lines;
}

bool WriteFileAtomic(const std::filesystem::path& path, std::string_view content,
                     std::string* reason) {
    std::filesystem::path temp = path;
    temp += ".tmp-" + std::to_string(::getpid());
    // Every step reports the system's own reason: a full disk shows at the
    // write or the close, a missing folder or a read-only one at the open.
    const auto fail = [&](int error, bool created) {
        if (reason) *reason = std::strerror(error);
        if (created) ::unlink(temp.c_str());
        return false;
    };
    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) return fail(errno, false);
    const char* data = content.data();
    std::size_t left = content.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, data, left);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            const int error = n < 0 ? errno : EIO;
            ::close(fd);
            return fail(error, true);
        }
        data += n;
        left -= static_cast<std::size_t>(n);
    }
    if (::close(fd) != 0) return fail(errno, true);
    if (::rename(temp.c_str(), path.c_str()) != 0) return fail(errno, true);
    return true;
}

std::string WriteFailureText(const std::filesystem::path& path, const std::string& reason) {
    return path.string() + " could not be written: " + reason;
}

}  // namespace solvane
