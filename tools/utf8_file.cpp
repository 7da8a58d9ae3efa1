#include "tools/utf8_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "common/text.h"

namespace tessel::tools {

std::string WithoutByteOrderMark(std::string bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    return bytes;
}

Result<std::string> ReadUtf8File(const std::string& path) {
    const std::filesystem::path name(std::u8string(path.begin(), path.end()));
    std::error_code ignored;
    if (std::filesystem::is_directory(name, ignored)) return Error{L"es una carpeta: " + FromUtf8(path)};
    std::ifstream file(name, std::ios::binary);
    if (!file) return Error{L"no se puede leer el archivo " + FromUtf8(path)};
    return WithoutByteOrderMark(std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace tessel::tools
