// tesselsql: the designer's portable core on the command line.
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "common/text.h"
#include "tools/commands.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

int Run(const std::vector<std::string>& arguments) {
    try {
        const int status = tessel::tools::RunCommand(arguments, std::cin, std::cout, std::cerr);
        std::cout.flush();
        return status;
    } catch (const std::exception& error) {
        std::cerr << "tesselsql: " << error.what() << '\n';
        return tessel::tools::kUnusable;
    }
}

}  // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** values) {
    // Bytes as they are: no line-end translation in either direction.
    for (int stream : {0, 1, 2}) _setmode(stream, _O_BINARY);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(tessel::ToUtf8(values[i]));
    return Run(arguments);
}
#else
int main(int count, char** values) {
    return Run(std::vector<std::string>(values + 1, values + count));
}
#endif
