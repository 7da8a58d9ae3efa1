// The rowsets of Connection.OpenSchema, put together from ODBC's catalogue functions, with the columns that
// OLE DB gives them. Criteria are compared exactly but for letter case; the patterns of ODBC never reach the
// host.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hostkit/ado/row_storage.h"

namespace tessel::ado {

/// The rowsets that are served, by ADO's own numbers.
enum class SchemaRowset : long { Columns = 4, Tables = 20, Views = 23, ForeignKeys = 27, PrimaryKeys = 28 };

/// Restrictions in the order of the rowset's own list; one left open restricts nothing.
using SchemaCriteria = std::vector<std::optional<std::wstring>>;

/// Reads a whole rowset; AdoError::NotSupported for one that is not served.
Status ReadSchemaRowset(Session& session, SchemaRowset rowset, const SchemaCriteria& criteria,
                        std::shared_ptr<RowSet>* target);

}  // namespace tessel::ado
