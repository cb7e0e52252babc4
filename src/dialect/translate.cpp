#include "dialect/translate.h"

#include "dialect/binder.h"
#include "dialect/date_uses.h"
#include "dialect/emitter.h"
#include "dialect/parser.h"
#include "dialect/rewrite.h"

namespace qbrpt::dialect {

Translation TranslateForSqlite(std::string_view text, const Catalogue& catalogue) {
    const Diagnostics diagnostics(text);
    Binder binder(catalogue, diagnostics); // before the tree, which quotes the texts that it keeps
    Statement statement = Parser(text, diagnostics).ParseStatement();
    binder.Bind(statement);
    Rewrite(statement);

    Translation translation;
    translation.kind = statement.kind;
    translation.parameters = binder.Parameters();
    if (statement.kind == StatementKind::Select) translation.columns = statement.query->columns;
    translation.dates = DatesLookedAt(statement);
    translation.sql = Emitter(binder).Emit(statement);
    return translation;
}

} // namespace qbrpt::dialect
