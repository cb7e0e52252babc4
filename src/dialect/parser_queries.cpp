#include "dialect/parser.h"
#include "dialect/parser_limits.h"
#include "dialect/parser_nesting.h"
#include "dialect/words.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

std::unique_ptr<Query> Parser::ParseQuery() {
    const Nesting nesting(*this);
    const int outerHighest = std::exchange(mHighest, 0);
    auto query = std::make_unique<Query>();
    const auto parsePart = [&] {
        const bool enclosed = AcceptSymbol("(");
        if (!IsWord("SELECT")) RaiseExpected("SELECT");
        query->parts.push_back(ParseSelect());
        if (enclosed) ExpectSymbol(")");
        if (query->parts.size() > MostParts) Raise("This UNION has too many parts");
    };
    parsePart();
    while (Accept("UNION")) {
        query->all.push_back(Accept("ALL"));
        parsePart();
    }
    if (IsWord("ORDER")) ParseOrder(*query);
    query->height = mHighest;
    mHighest = std::max(outerHighest, mHighest);
    return query;
}

std::unique_ptr<Select> Parser::ParseSelect() {
    auto select = std::make_unique<Select>();
    Expect("SELECT");
    ParseSelectOptions(*select);
    do {
        if (select->items.size() >= MostItems) Raise("This SELECT has too many columns");
        select->items.push_back(ParseItem());
    } while (AcceptSymbol(","));
    if (IsWord("INTO")) RaiseRefused("SELECT with INTO is refused: a SELECT reads rows and makes no table");
    if (Accept("FROM")) select->from = ParseFrom(*select);
    if (Accept("WHERE")) select->where = ParseExpression();
    if (Accept("GROUP")) {
        Expect("BY");
        do {
            if (select->groupBy.size() >= MostItems) Raise("This GROUP BY has too many columns");
            select->groupBy.push_back(ParseExpression());
        } while (AcceptSymbol(","));
    }
    if (Accept("HAVING")) select->having = ParseExpression();
    return select;
}

void Parser::ParseSelectOptions(Select& select) {
    if (!Accept("ALL")) select.distinct = Accept("DISTINCT") || Accept("DISTINCTROW");
    if (!IsWord("TOP") || Next().type != TokenType::Whole) return;
    Take();
    select.top = Take().whole;
    select.percent = Accept("PERCENT");
}

bool Parser::ParseStar(SelectItem& item) {
    if (IsSymbol("*")) {
        Take();
        return item.star = true;
    }
    return false;
}

SelectItem Parser::ParseItem() {
    SelectItem item;
    item.offset = mToken.offset;
    item.word = mToken.raw;
    if (ParseStar(item)) return item;
    item.expression = ParseExpression();
    if (item.expression->type == NodeType::Name && item.expression->star) {
        item.star = true;
        item.starQualifier = std::move(item.expression->qualifier);
        item.expression.reset();
        return item;
    }
    if (Accept("AS")) item.alias = TakeName("the name of a column", true);
    return item;
}

void Parser::ParseOrder(Query& query) {
    Take();
    Expect("BY");
    do {
        if (query.order.size() >= MostItems) Raise("This ORDER BY has too many columns");
        OrderTerm& term = query.order.emplace_back();
        term.expression = ParseExpression();
        if (Accept("DESC"))
            term.descending = true;
        else
            Accept("ASC");
    } while (AcceptSymbol(","));
}

std::unique_ptr<JoinNode> Parser::ParseFrom(Select& select) {
    std::unique_ptr<JoinNode> from = ParseJoins(select);
    while (AcceptSymbol(",")) {
        auto comma = std::make_unique<JoinNode>();
        comma->type = JoinNode::Type::Inner;
        comma->left = std::move(from);
        comma->right = ParseJoins(select);
        from = std::move(comma);
    }
    return from;
}

bool Parser::AcceptJoin(JoinNode::Type& type) {
    if (IsWord("JOIN")) {
        type = JoinNode::Type::Inner;
        Take();
        return true;
    }
    if (IsWord("INNER"))
        type = JoinNode::Type::Inner;
    else if (IsWord("LEFT"))
        type = JoinNode::Type::Left;
    else if (IsWord("RIGHT"))
        type = JoinNode::Type::Right;
    else
        return false;
    Take();
    if (type != JoinNode::Type::Inner) Accept("OUTER");
    Expect("JOIN");
    return true;
}

std::unique_ptr<JoinNode> Parser::ParseJoins(Select& select) {
    const Nesting nesting(*this);
    std::unique_ptr<JoinNode> left = ParseSource(select);
    for (JoinNode::Type type{}; AcceptJoin(type);) {
        auto join = std::make_unique<JoinNode>();
        join->type = type;
        join->left = std::move(left);
        join->right = ParseSource(select);
        Expect("ON");
        join->condition = ParseExpression();
        left = std::move(join);
    }
    return left;
}

std::unique_ptr<JoinNode> Parser::ParseSource(Select& select) {
    if (IsSymbol("(") && !IsWord(Next(), "SELECT")) {
        Take();
        std::unique_ptr<JoinNode> inner = ParseFrom(select);
        ExpectSymbol(")");
        return inner;
    }
    if (select.sources.size() >= MostSources) Raise("This FROM clause has too many tables");
    auto source = std::make_unique<Source>();
    source->offset = mToken.offset;
    source->word = mToken.raw;
    if (AcceptSymbol("(")) {
        source->query = ParseQuery();
        ExpectSymbol(")");
    } else {
        source->word = mToken.raw;
        source->name = source->alias = TakeName("the name of a table");
    }
    ParseAlias(*source);
    auto leaf = std::make_unique<JoinNode>();
    leaf->source = source.get();
    select.sources.push_back(std::move(source));
    return leaf;
}

void Parser::ParseAlias(Source& source) {
    if (Accept("AS"))
        source.alias = TakeName("an alias", true);
    else if (IsName())
        source.alias = TakeName("an alias");
}

} // namespace qbrpt::dialect
