#include "benchmarks/bench_data.h"

#include <malloc.h>

#include <cstdlib>
#include <fstream>
#include <new>
#include <sstream>
#include <stdexcept>

#include "analyse/analyse_sql.h"
#include "common/text.h"

namespace {

bool counting = false;
std::ptrdiff_t held = 0;  // blocks from before may go meanwhile
std::ptrdiff_t peak = 0;

void* Allocate(std::size_t size) {
    void* const block = std::malloc(size);
    if (!block) throw std::bad_alloc();
    if (counting) {
        held += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
        if (held > peak) peak = held;
    }
    return block;
}

void Release(void* block) {
    if (counting && block) held -= static_cast<std::ptrdiff_t>(malloc_usable_size(block));
    std::free(block);
}

}  // namespace

// Blocks are counted only while CountedMemory lives, so that allocating costs what it always does elsewhere.
void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* block) noexcept {
    Release(block);
}
void operator delete[](void* block) noexcept {
    Release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    Release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    Release(block);
}

namespace tessel::bench {

namespace {

std::string ReadFile(const char* path) {
    std::ifstream file(std::string(TESSEL_SOURCE_DIR) + path, std::ios::binary);
    if (!file) throw std::runtime_error(std::string("cannot read ") + path);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::wstring> ReadStatements() {
    const std::wstring text = FromUtf8(ReadFile("/benchmarks/statements.sql"));
    static constexpr std::wstring_view kBetween = L"\n---\n";
    std::vector<std::wstring> statements;
    for (std::size_t begin = 0;;) {
        const std::size_t end = text.find(kBetween, begin);
        statements.push_back(text.substr(begin, end == std::wstring::npos ? end : end - begin));
        if (end == std::wstring::npos) return statements;
        begin = end + kBetween.size();
    }
}

std::vector<std::wstring> OnlyShown() {
    std::vector<std::wstring> shown;
    for (const std::wstring& statement : Statements()) {
        model::Design design;
        const analyse::Analysis analysis = analyse::AnalyseSQL(statement, design);
        if (analysis.accepted && analysis.messages.empty()) shown.push_back(statement);
    }
    return shown;
}

}  // namespace

const std::vector<std::wstring>& Statements() {
    static const std::vector<std::wstring> statements = ReadStatements();
    return statements;
}

const std::vector<std::wstring>& ShownStatements() {
    static const std::vector<std::wstring> statements = OnlyShown();
    return statements;
}

const std::string& TablesScript() {
    static const std::string script = ReadFile("/hostkit/ventas/tables.sql");
    return script;
}

CountedMemory::CountedMemory() {
    held = peak = 0;
    counting = true;
}

CountedMemory::~CountedMemory() {
    counting = false;
}

std::size_t CountedMemory::Held() const {
    return static_cast<std::size_t>(held);
}

std::size_t CountedMemory::Peak() const {
    return static_cast<std::size_t>(peak);
}

}  // namespace tessel::bench
