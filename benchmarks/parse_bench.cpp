// Parsing: statements a second beside SQLite, cost against length, memory.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>

#include "benchmarks/bench_data.h"
#include "common/text.h"
#include "sqlparser/sql_parser.h"

namespace tessel::bench {
namespace {

std::size_t Characters(const std::vector<std::wstring>& statements) {
    std::size_t characters = 0;
    for (const std::wstring& statement : statements) characters += statement.size();
    return characters;
}

void Count(benchmark::State& state, std::size_t statements, std::size_t characters) {
    const auto rate = [&](std::size_t amount) {
        return benchmark::Counter(static_cast<double>(amount), benchmark::Counter::kIsIterationInvariantRate);
    };
    state.counters["statements"] = rate(statements);
    state.counters["characters"] = rate(characters);
}

void ParseStatements(benchmark::State& state) {
    const std::vector<std::wstring>& statements = Statements();
    sql::SqlParser parser;
    for (auto _ : state) {
        for (const std::wstring& statement : statements) {
            if (parser.Parse(statement)) state.SkipWithError("a statement does not parse");
            benchmark::DoNotOptimize(parser.GetStatement());
        }
    }
    Count(state, statements.size(), Characters(statements));
    ReportMemory(state, [&] {
        for (const std::wstring& statement : statements) {
            sql::SqlParser fresh;
            if (fresh.Parse(statement)) state.SkipWithError("a statement does not parse");
        }
    });
}
BENCHMARK(ParseStatements);

// The reference: the same statements, prepared over the same tables, all empty.
void PrepareStatementsInSqlite(benchmark::State& state) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open(":memory:", &raw);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(raw, &sqlite3_close);
    if (opened != SQLITE_OK ||
        sqlite3_exec(raw, TablesScript().c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        return state.SkipWithError(sqlite3_errmsg(raw));
    std::vector<std::string> statements;
    for (const std::wstring& statement : Statements()) statements.push_back(ToUtf8(statement));
    const auto before = sqlite3_memory_used();
    sqlite3_memory_highwater(1);
    for (auto _ : state) {
        for (const std::string& statement : statements) {
            sqlite3_stmt* prepared = nullptr;
            if (sqlite3_prepare_v2(raw, statement.c_str(), static_cast<int>(statement.size()) + 1, &prepared,
                                   nullptr) != SQLITE_OK)
                state.SkipWithError(sqlite3_errmsg(raw));
            sqlite3_finalize(prepared);
        }
    }
    Count(state, statements.size(), Characters(Statements()));
    state.counters["peak_bytes"] = static_cast<double>(sqlite3_memory_highwater(0) - before);
}
BENCHMARK(PrepareStatementsInSqlite);

/// A statement of about that many characters whose conditions are many, or nested as deep as the parser goes.
std::wstring LongStatement(std::size_t characters, bool nested) {
    static constexpr int kDepth = 400;
    std::wstring group;
    if (nested) {
        group = std::wstring(kDepth, L'(') + L"Pedidos.Importe > 10" + std::wstring(kDepth, L')');
    } else {
        group = L"(Clientes.Pais = 'Chile' OR Pedidos.Importe BETWEEN 10 AND 450)";
    }
    std::wstring text =
        L"SELECT Clientes.Nombre FROM Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente "
        L"WHERE ";
    text += group;
    while (text.size() < characters) text += L" AND " + group;
    return text;
}

void ParseLong(benchmark::State& state, bool nested) {
    const std::wstring text = LongStatement(static_cast<std::size_t>(state.range(0)), nested);
    sql::SqlParser parser;
    // The first parse takes its memory from the system, which ParseOnce measures.
    if (parser.Parse(text)) state.SkipWithError("the statement does not parse");
    for (auto _ : state) {
        if (parser.Parse(text)) state.SkipWithError("the statement does not parse");
        benchmark::DoNotOptimize(parser.GetStatement());
    }
    Count(state, 1, text.size());
    ReportMemory(state, [&] {
        sql::SqlParser fresh;
        if (fresh.Parse(text)) state.SkipWithError("the statement does not parse");
    });
}
void ParseBreadth(benchmark::State& state) {
    ParseLong(state, false);
}
void ParseNesting(benchmark::State& state) {
    ParseLong(state, true);
}
BENCHMARK(ParseBreadth)->Arg(1000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000);
// The same by a parser of its own each time, which takes its memory from the system and gives it back.
void ParseOnce(benchmark::State& state) {
    const std::wstring text = LongStatement(static_cast<std::size_t>(state.range(0)), false);
    for (auto _ : state) {
        sql::SqlParser parser;
        if (parser.Parse(text)) state.SkipWithError("the statement does not parse");
        benchmark::DoNotOptimize(parser.GetStatement());
    }
    Count(state, 1, text.size());
}
BENCHMARK(ParseOnce)->Arg(10'000)->Arg(10'000'000);
BENCHMARK(ParseNesting)->Arg(1000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000);

// The bytes that a parsed statement holds, against its text where the product lives: two bytes a character.
void ParsedMemory(benchmark::State& state) {
    std::size_t held = 0;
    for (auto _ : state) {
        held = 0;
        for (const std::wstring& statement : Statements()) {
            const CountedMemory memory;
            sql::SqlParser parser;
            if (parser.Parse(statement)) state.SkipWithError("a statement does not parse");
            held += memory.Held();
        }
    }
    state.counters["bytes"] = static_cast<double>(held);
    state.counters["times_text"] =
        static_cast<double>(held) / (2.0 * static_cast<double>(Characters(Statements())));
}
BENCHMARK(ParsedMemory);

}  // namespace
}  // namespace tessel::bench
