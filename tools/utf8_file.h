// Reading a UTF-8 file named by a UTF-8 path on every system.
#pragma once

#include <string>

#include "common/result.h"

namespace tessel::tools {

[[nodiscard]] std::string WithoutByteOrderMark(std::string bytes);

/// The file's bytes without a byte-order mark, or why it cannot be read.
[[nodiscard]] Result<std::string> ReadUtf8File(const std::string& path);

}  // namespace tessel::tools
