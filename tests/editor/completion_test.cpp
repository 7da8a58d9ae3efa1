#include "controls/editor/completion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>

#include "common/identifiers.h"
#include "common/text.h"

namespace tessel::controls {
namespace {

class LiteralSource final : public schema::SchemaSource {
public:
    Result<std::vector<schema::Object>> LoadObjects() override {
        std::vector<schema::Object> objects;
        for (const wchar_t* name :
             {L"Clientes", L"Pedidos", L"Detalle de pedidos", L"Productos", L"Categorías", L"Empleados"})
            objects.push_back({BracketIfNeeded(name), name, schema::ObjectKind::Table});
        objects.push_back({L"[Ventas por país]", L"Ventas por país", schema::ObjectKind::View});
        return objects;
    }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        const auto fields = [](std::initializer_list<const wchar_t*> names) {
            std::vector<schema::Field> list;
            for (const wchar_t* name : names) {
                schema::Field field;
                field.raw_name = name;
                field.name = BracketIfNeeded(name);
                list.push_back(field);
            }
            return list;
        };
        if (object.raw_name == L"Clientes")
            return fields({L"IdCliente", L"Nombre", L"País", L"Fecha de alta"});
        if (object.raw_name == L"Pedidos")
            return fields({L"IdPedido", L"IdCliente", L"FechaPedido", L"Importe"});
        if (object.raw_name == L"Detalle de pedidos")
            return fields({L"IdPedido", L"IdProducto", L"Cantidad"});
        if (object.raw_name == L"Productos") return fields({L"IdProducto", L"Descripción"});
        if (object.raw_name == L"Empleados") return fields({L"IdEmpleado", L"Nombre", L"Jefe"});
        return fields({L"Id"});
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>{
            {L"a", L"Pedidos", {L"IdCliente"}, L"Clientes", {L"IdCliente"}},
            {L"b", L"[Detalle de pedidos]", {L"IdPedido"}, L"Pedidos", {L"IdPedido"}},
            {L"c", L"[Detalle de pedidos]", {L"IdProducto"}, L"Productos", {L"IdProducto"}},
            {L"d", L"Empleados", {L"Jefe"}, L"Empleados", {L"IdEmpleado"}}};
    }
};

class CompletionTest : public testing::Test {
protected:
    CompletionTest() : schema_(std::make_unique<LiteralSource>()) {
        names_.schema = &schema_;
        names_.macros = {L"fecha", L"hora", L"usuariowin"};
        names_.parameters = {L"Cliente", L"con blanco", L"{mes}", L"a.b"};
    }

    /// Completes at the "|" of the text.
    Completion At(std::wstring text) const {
        const std::size_t caret = text.find(L'|');
        EXPECT_NE(caret, std::wstring::npos);
        text.erase(caret, 1);
        return Complete(text, caret, names_);
    }
    /// The texts that match what is typed at the "|", best first.
    std::vector<std::wstring> Offered(const std::wstring& text) const {
        const Completion completion = At(text);
        std::vector<std::wstring> texts;
        for (std::size_t i : Matching(completion.candidates, completion.typed))
            texts.push_back(InsertedText(completion.candidates[i], completion.typed));
        return texts;
    }
    std::vector<std::wstring> OfKind(const std::wstring& text, CompletionKind kind) const {
        const Completion completion = At(text);
        std::vector<std::wstring> texts;
        for (std::size_t i : Matching(completion.candidates, completion.typed))
            if (completion.candidates[i].kind == kind) texts.push_back(completion.candidates[i].text);
        return texts;
    }
    bool Offers(const std::wstring& text, std::wstring_view wanted) const {
        const auto offered = Offered(text);
        return std::find(offered.begin(), offered.end(), wanted) != offered.end();
    }

    schema::Schema schema_;
    CompletionNames names_;
};

using Texts = std::vector<std::wstring>;

const Texts kAllTables = {L"Clientes",   L"Pedidos",   L"[Detalle de pedidos]", L"Productos",
                          L"Categorías", L"Empleados", L"[Ventas por país]"};
const Texts kOfClientes = {L"IdCliente", L"Nombre", L"País", L"[Fecha de alta]"};

TEST_F(CompletionTest, TablesAndViewsWhereATableCanStand) {
    for (const wchar_t* text : {
             L"SELECT * FROM |",
             L"SELECT * FROM |\r\nWHERE a = 1",
             L"SELECT * FROM Clientes, |",
             L"SELECT * FROM Clientes INNER JOIN |",
             L"SELECT * FROM Clientes c LEFT OUTER JOIN |",
             L"SELECT * FROM Clientes, Pedidos AS p,|",
             L"SELECT * FROM ((Clientes INNER JOIN Pedidos ON a = b) LEFT JOIN |",
             L"SELECT * FROM Clientes INNER JOIN Pedidos ON a = b, |",
             L"SELECT a FROM t WHERE x IN (SELECT b FROM |)",
             L"select * from |",
             L"SELECT * FROM dbo.|",
         })
        EXPECT_EQ(Offered(text), kAllTables) << ToUtf8(text);
    EXPECT_EQ(OfKind(L"SELECT * FROM (|", CompletionKind::Table).size(), 6u);
    EXPECT_TRUE(Offers(L"SELECT * FROM (|", L"SELECT"));
    EXPECT_EQ(OfKind(L"SELECT * FROM |", CompletionKind::View), (Texts{L"[Ventas por país]"}));
}

TEST_F(CompletionTest, TheFieldsOfATableAfterItsPoint) {
    const Texts of_select = {L"IdCliente", L"Nombre", L"País", L"[Fecha de alta]", L"*"};
    for (const wchar_t* text : {
             L"SELECT Clientes.| FROM Clientes",
             L"SELECT c.| FROM Clientes c",
             L"SELECT c.| FROM Clientes AS c",
             L"SELECT c.|",
             L"SELECT c.|\r\nFROM Clientes AS c INNER JOIN Pedidos AS p ON p.IdCliente = c.IdCliente",
             L"SELECT a, c.|, b FROM dbo.Clientes c",
             L"SELECT [el cliente].| FROM Clientes AS [el cliente]",
             L"SELECT CLIENTES.| FROM clientes",
             L"SELECT Clientes.|",
             L"SELECT c.|FROM Clientes c",
             L"SELECT Sum(c.|) FROM Clientes c",
         }) {
        const bool known = std::wstring(text) != L"SELECT c.|";
        EXPECT_EQ(Offered(text), known ? of_select : Texts{}) << ToUtf8(text);
    }
    EXPECT_EQ(Offered(L"SELECT * FROM Clientes c WHERE c.|"), kOfClientes);
    EXPECT_EQ(Offered(L"SELECT * FROM Clientes c WHERE c!|"), kOfClientes);
    EXPECT_EQ(Offered(L"SELECT * FROM Pedidos WHERE [Detalle de pedidos].|"),
              (Texts{L"IdPedido", L"IdProducto", L"Cantidad"}));
    EXPECT_EQ(Offered(L"SELECT * FROM Clientes ORDER BY Clientes.n|"), (Texts{L"Nombre"}));
}

TEST_F(CompletionTest, AnAliasHidesTheTableOfItsName) {
    EXPECT_EQ(Offered(L"SELECT * FROM Clientes AS Pedidos WHERE Pedidos.|"), kOfClientes);
}

TEST_F(CompletionTest, AliasesOfTheSelectAroundAreKnown) {
    EXPECT_EQ(
        Offered(L"SELECT * FROM Clientes c WHERE EXISTS (SELECT 1 FROM Pedidos p WHERE p.IdCliente = c.|)"),
        kOfClientes);
    EXPECT_EQ(
        Offered(L"SELECT * FROM Clientes x WHERE IdCliente IN (SELECT IdCliente FROM Pedidos x WHERE x.|)"),
        (Texts{L"IdPedido", L"IdCliente", L"FechaPedido", L"Importe"}));
    // What is nested is not seen from outside.
    EXPECT_EQ(Offered(L"SELECT * FROM Clientes WHERE IdCliente IN (SELECT IdCliente FROM Pedidos p) AND p.|"),
              Texts{});
}

TEST_F(CompletionTest, SelectsInFromHaveTheColumnsTheyName) {
    EXPECT_EQ(
        Offered(L"SELECT * FROM (SELECT Nombre, Sum(x) AS Total, t.País FROM Clientes t) AS d WHERE d.|"),
        (Texts{L"Nombre", L"Total", L"País"}));
    EXPECT_EQ(Offered(L"SELECT * FROM (SELECT * FROM Clientes) d WHERE d.|"), kOfClientes);
    EXPECT_EQ(Offered(L"WITH v AS (SELECT Nombre AS N FROM Clientes) SELECT * FROM v WHERE v.|"),
              (Texts{L"N"}));
    EXPECT_EQ(Offered(L"WITH v AS (SELECT 1 AS N) SELECT * FROM |").front(), L"v");
    EXPECT_EQ(Offered(L"WITH RECURSIVE v AS (SELECT * FROM v) SELECT * FROM v WHERE v.|"), Texts{});
}

TEST_F(CompletionTest, EveryOperandOfAUnionHasItsOwnTables) {
    EXPECT_EQ(Offered(L"SELECT x.a FROM Pedidos x UNION SELECT b FROM Clientes x WHERE x.|"), kOfClientes);
    EXPECT_EQ(Offered(L"SELECT 1 FROM Clientes x WHERE x.| UNION SELECT b FROM Pedidos x"), kOfClientes);
}

TEST_F(CompletionTest, FieldsOfTheTablesInFromWhereAValueCanStand) {
    for (const wchar_t* text : {
             L"SELECT | FROM Clientes",
             L"SELECT a, | FROM Clientes",
             L"SELECT a FROM Clientes WHERE |",
             L"SELECT a FROM Clientes WHERE (a = 1) AND |",
             L"SELECT a FROM Clientes WHERE a = |",
             L"SELECT a FROM Clientes WHERE a BETWEEN 1 AND |",
             L"SELECT a FROM Clientes WHERE a IN (|",
             L"SELECT a FROM Clientes WHERE NOT |",
             L"SELECT a FROM Clientes GROUP BY |",
             L"SELECT a FROM Clientes GROUP BY a HAVING Sum(|) > 1",
             L"SELECT a FROM Clientes ORDER BY a, |",
             L"SELECT IIf(a, |, 0) FROM Clientes",
             L"SELECT a * | FROM Clientes",
         })
        EXPECT_EQ(OfKind(text, CompletionKind::Field), kOfClientes) << ToUtf8(text);
    EXPECT_EQ(OfKind(L"SELECT a FROM Clientes c WHERE |", CompletionKind::Alias), (Texts{L"c"}));
    EXPECT_TRUE(Offers(L"SELECT | FROM Clientes", L"Sum("));
    EXPECT_TRUE(Offers(L"SELECT | FROM Clientes", L"DISTINCTROW"));
    EXPECT_FALSE(Offers(L"SELECT a, | FROM Clientes", L"DISTINCTROW"));
}

TEST_F(CompletionTest, AFieldOfMoreThanOneTableIsQualified) {
    EXPECT_EQ(OfKind(L"SELECT idc| FROM Clientes c, Pedidos", CompletionKind::Field),
              (Texts{L"c.IdCliente", L"Pedidos.IdCliente"}));
    EXPECT_EQ(OfKind(L"SELECT imp| FROM Clientes c, Pedidos", CompletionKind::Field), (Texts{L"Importe"}));
    EXPECT_EQ(OfKind(L"SELECT nom| FROM Empleados, Empleados AS j", CompletionKind::Field),
              (Texts{L"Empleados.Nombre", L"j.Nombre"}));
    EXPECT_EQ(OfKind(L"SELECT idp| FROM Pedidos, [Detalle de pedidos]", CompletionKind::Field),
              (Texts{L"Pedidos.IdPedido", L"[Detalle de pedidos].IdPedido", L"IdProducto"}));
}

TEST_F(CompletionTest, BeforeFromIsWrittenAnyTableIsOffered) {
    EXPECT_EQ(OfKind(L"SELECT cat|", CompletionKind::Table), (Texts{L"Categorías"}));
}

TEST_F(CompletionTest, TitlesCanBeSortedBy) {
    EXPECT_EQ(Offered(L"SELECT Sum(Importe) AS Total FROM Pedidos ORDER BY tot|").front(), L"Total");
}

TEST_F(CompletionTest, OnOffersTheForeignKeyFirst) {
    const struct {
        const wchar_t* text;
        const wchar_t* wanted;
    } kCases[] = {
        {L"SELECT * FROM Clientes INNER JOIN Pedidos ON |", L"Clientes.IdCliente = Pedidos.IdCliente"},
        {L"SELECT * FROM Pedidos LEFT JOIN Clientes ON |", L"Pedidos.IdCliente = Clientes.IdCliente"},
        {L"SELECT * FROM Clientes c INNER JOIN Pedidos AS p ON |", L"c.IdCliente = p.IdCliente"},
        {L"SELECT * FROM Clientes c INNER JOIN Pedidos AS p |", L"ON c.IdCliente = p.IdCliente"},
        {L"SELECT * FROM (Clientes INNER JOIN Pedidos ON a = b) INNER JOIN [Detalle de pedidos] ON |",
         L"Pedidos.IdPedido = [Detalle de pedidos].IdPedido"},
        {L"SELECT * FROM Clientes INNER JOIN (Pedidos INNER JOIN [Detalle de pedidos] ON |",
         L"Pedidos.IdPedido = [Detalle de pedidos].IdPedido"},
        {L"SELECT * FROM Clientes INNER JOIN (Pedidos INNER JOIN [Detalle de pedidos] ON a = b) ON |",
         L"Clientes.IdCliente = Pedidos.IdCliente"},
        {L"SELECT * FROM Empleados INNER JOIN Empleados AS j ON |", L"Empleados.IdEmpleado = j.Jefe"},
    };
    for (const auto& test : kCases) {
        const auto offered = Offered(test.text);
        ASSERT_FALSE(offered.empty()) << ToUtf8(test.text);
        EXPECT_EQ(offered.front(), test.wanted) << ToUtf8(test.text);
    }
    EXPECT_EQ(OfKind(L"SELECT * FROM Clientes INNER JOIN Productos ON |", CompletionKind::Relation), Texts{});
    EXPECT_EQ(OfKind(L"SELECT * FROM Empleados INNER JOIN Empleados AS j ON |", CompletionKind::Relation),
              (Texts{L"Empleados.IdEmpleado = j.Jefe", L"Empleados.Jefe = j.IdEmpleado"}));
}

TEST_F(CompletionTest, WordsOfTheLanguageWhereTheyFit) {
    const struct {
        const wchar_t* text;
        Texts wanted;
    } kCases[] = {
        {L"|", {L"SELECT", L"SELECT DISTINCTROW", L"SELECT TOP", L"WITH", L"PARAMETERS", L"TRANSFORM"}},
        {L"SEL|", {L"SELECT", L"SELECT DISTINCTROW", L"SELECT TOP"}},
        {L"sel|", {L"select", L"select distinctrow", L"select top"}},
        {L"SELECT a F|", {L"FROM"}},
        {L"SELECT a FROM Clientes WH|", {L"WHERE"}},
        {L"SELECT a FROM Clientes inn|", {L"inner join"}},
        {L"SELECT a FROM Clientes LEFT |", {L"JOIN", L"OUTER JOIN"}},
        {L"SELECT a FROM Clientes INNER |", {L"JOIN"}},
        {L"SELECT a FROM Clientes INNER JOIN Pedidos O|", {L"ON", L"ORDER BY"}},
        {L"SELECT a FROM Clientes WHERE a = 1 GROUP |", {L"BY"}},
        {L"SELECT a FROM Clientes WHERE a IS |", {L"NULL", L"NOT NULL"}},
        {L"SELECT a FROM Clientes WHERE a = 1 AN|", {L"AND"}},
        {L"SELECT a FROM Clientes ORDER BY a d|", {L"desc"}},
        {L"SELECT a FROM Clientes UNION |", {L"SELECT", L"ALL"}},
        {L"SELECT a AS |", {}},
        {L"SELECT a FROM Clientes AS |", {}},
    };
    for (const auto& test : kCases) {
        Texts offered;
        const Completion completion = At(test.text);
        for (std::size_t i : Matching(completion.candidates, completion.typed))
            if (completion.candidates[i].kind != CompletionKind::Relation)
                offered.push_back(InsertedText(completion.candidates[i], completion.typed));
        EXPECT_EQ(offered, test.wanted) << ToUtf8(test.text);
    }
    EXPECT_TRUE(Offers(L"SELECT CASE WHEN a = 1 TH| FROM Clientes", L"THEN"));
    EXPECT_FALSE(Offers(L"SELECT a FROM Clientes WHERE (a = 1 |", L"GROUP BY"));
    EXPECT_TRUE(Offers(L"SELECT a FROM Clientes WHERE (a = 1 |", L"AND"));
    EXPECT_TRUE(Offers(L"SELECT a FROM Clientes WHERE EXISTS (|", L"SELECT"));
}

TEST_F(CompletionTest, MacrosAndParametersAfterTheAtSign) {
    EXPECT_EQ(Offered(L"SELECT a FROM t WHERE b = @|"),
              (Texts{L"@Cliente", L"@{mes}", L"@fecha", L"@hora", L"@usuariowin"}));
    EXPECT_EQ(Offered(L"SELECT a FROM t WHERE b = @f|"), (Texts{L"@fecha"}));
    EXPECT_EQ(Offered(L"SELECT a FROM t WHERE b = @{m|"), (Texts{L"@{mes}"}));
    EXPECT_EQ(At(L"SELECT @fe| FROM t").replaced, (TextRange{7, 3}));
    EXPECT_EQ(At(L"SELECT @|fecha FROM t").replaced, (TextRange{7, 6}));
}

TEST_F(CompletionTest, NothingInsideStringsCommentsDatesAndNumbers) {
    for (const wchar_t* text : {
             L"SELECT 'Cli|entes' FROM Clientes",
             L"SELECT a FROM Clientes WHERE b = 'Cli|",
             L"SELECT a FROM Clientes WHERE b = \"Cli|",
             L"SELECT a -- Cli|",
             L"SELECT a -- Cli|\r\nFROM t",
             L"SELECT a /* Cli| */ FROM t",
             L"SELECT a /* Cli|",
             L"SELECT a FROM t WHERE b > #2024-|01-01#",
             L"SELECT 12|",
             L"SELECT 1.|",
             L"SELECT :p|",
         })
        EXPECT_TRUE(At(text).candidates.empty()) << ToUtf8(text);
    EXPECT_FALSE(At(L"SELECT a /* c */ | FROM t").candidates.empty());
    EXPECT_FALSE(At(L"SELECT a FROM t WHERE b = '' AND |").candidates.empty());
}

TEST_F(CompletionTest, TheWholeNameAtTheCaretIsReplaced) {
    const struct {
        const wchar_t* text;
        TextRange replaced;
        const wchar_t* typed;
    } kCases[] = {
        {L"SELECT Nom| FROM Clientes", {7, 3}, L"Nom"},
        {L"SELECT No|mbre FROM Clientes", {7, 6}, L"No"},
        {L"SELECT |Nombre FROM Clientes", {7, 0}, L""},
        {L"SELECT | FROM Clientes", {7, 0}, L""},
        {L"SELECT c.No| FROM Clientes c", {9, 2}, L"No"},
        {L"SELECT [Fecha de| FROM Clientes", {7, 9}, L"[Fecha de"},
        {L"SELECT [Fecha| de alta] FROM Clientes", {7, 15}, L"[Fecha"},
        {L"SELECT [Fecha| FROM [Detalle de pedidos]", {7, 6}, L"[Fecha"},
        {L"SELECT [| FROM [Detalle de pedidos]", {7, 1}, L"["},
        {L"SELECT a FROM Clientes WHERE [Fecha de alta]|", {44, 0}, L""},
    };
    for (const auto& test : kCases) {
        const Completion completion = At(test.text);
        EXPECT_EQ(completion.replaced, test.replaced) << ToUtf8(test.text);
        EXPECT_EQ(completion.typed, test.typed) << ToUtf8(test.text);
    }
}

TEST_F(CompletionTest, AnOpenBracketDoesNotSwallowTheTables) {
    EXPECT_EQ(Offered(L"SELECT [fec| FROM Clientes"), (Texts{L"[Fecha de alta]"}));
    EXPECT_EQ(Offered(L"SELECT c.[| FROM Clientes c").size(), 5u);
    EXPECT_EQ(Offered(L"SELECT * FROM [det|"), (Texts{L"[Detalle de pedidos]"}));
}

TEST_F(CompletionTest, LetterCaseAndAccentsDoNotCount) {
    EXPECT_EQ(Offered(L"SELECT * FROM CATEGORIAS|"), (Texts{L"Categorías"}));
    EXPECT_EQ(Offered(L"SELECT * FROM categorí|"), (Texts{L"Categorías"}));
    EXPECT_EQ(Offered(L"SELECT * FROM Clientes WHERE Clientes.pais|"), (Texts{L"País"}));
}

TEST_F(CompletionTest, BeginningsComeBeforeWordsAndWordsBeforeTheRest) {
    EXPECT_EQ(Offered(L"SELECT * FROM ped|"), (Texts{L"Pedidos", L"[Detalle de pedidos]"}));
    EXPECT_EQ(Offered(L"SELECT * FROM Pedidos p WHERE p.ped|"), (Texts{L"IdPedido", L"FechaPedido"}));
    EXPECT_EQ(Offered(L"SELECT * FROM pa|"), (Texts{L"[Ventas por país]"}));
    EXPECT_EQ(Offered(L"SELECT * FROM zz|"), Texts{});
}

TEST_F(CompletionTest, AFunctionThatHasItsParenthesisGetsNoOther) {
    EXPECT_EQ(OfKind(L"SELECT Mont| FROM Clientes", CompletionKind::Function),
              (Texts{L"Month(", L"MonthName("}));
    EXPECT_EQ(OfKind(L"SELECT Mont|(a) FROM Clientes", CompletionKind::Function),
              (Texts{L"Month", L"MonthName"}));
    EXPECT_EQ(OfKind(L"SELECT now| FROM Clientes", CompletionKind::Function), (Texts{L"Now()"}));
}

TEST_F(CompletionTest, FunctionsOfTheColouringFileAreKnown) {
    SqlWords words;
    words.functions.Add(L"Sum MiFunción");
    names_.words = &words;
    EXPECT_EQ(OfKind(L"SELECT mif| FROM Clientes", CompletionKind::Function), (Texts{L"MIFUNCIóN("}));
}

TEST_F(CompletionTest, WithoutASchemaTheStatementsOwnNamesRemain) {
    names_.schema = nullptr;
    EXPECT_EQ(Offered(L"SELECT * FROM |"), Texts{});
    EXPECT_EQ(OfKind(L"SELECT | FROM Clientes c", CompletionKind::Alias), (Texts{L"c"}));
    EXPECT_TRUE(Offers(L"SELECT su| FROM t", L"Sum("));
}

TEST_F(CompletionTest, UnfinishedAndWrongTextsAreNoTrouble) {
    for (const wchar_t* text : {
             L"|",
             L")|",
             L"(((((|",
             L"SELECT )))) FROM |",
             L"FROM |",
             L"SELECT a FROM WHERE |",
             L".|",
             L"SELECT . FROM |",
             L"FROM Clientes c WHERE c.|",
             L"SELECT ;;; | FROM",
             L"JOIN ON | LEFT",
             L"SELECT a FROM (SELECT b FROM (|",
             L"ON |",
             L"SELECT 'a",
             L"@|",
             L"[|",
             L"`|",
             L"UNION |",
         }) {
        std::wstring copy(text);
        if (copy.find(L'|') == std::wstring::npos) copy += L'|';
        (void)At(copy);
    }
    EXPECT_EQ(Offered(L"FROM Clientes c WHERE c.|"), kOfClientes);
}

TEST_F(CompletionTest, EveryCaretInEveryTextIsAnswered) {
    const std::wstring text =
        L"WITH v AS (SELECT a FROM [t 1]) SELECT DISTINCT c.Nombre, (SELECT Max(x) FROM v) AS M -- c\r\n"
        L"FROM (Clientes AS c INNER JOIN Pedidos ON c.Id = Pedidos.Id), [Detalle de pedidos] d\r\n"
        L"WHERE c.[País] = 'ES' AND d.x IN (1, @{a b}, :p, #2024-01-01#) UNION SELECT 1;";
    for (std::size_t caret = 0; caret <= text.size(); ++caret) {
        const Completion completion = Complete(text, caret, names_);
        EXPECT_LE(completion.replaced.End(), text.size());
        EXPECT_LE(completion.replaced.offset, caret);
        EXPECT_GE(completion.replaced.End(), caret);
        // The text cut at the caret is what somebody sees who is still writing.
        (void)Complete(std::wstring_view(text).substr(0, caret), caret, names_);
    }
}

}  // namespace
}  // namespace tessel::controls
