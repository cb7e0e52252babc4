// What a layout says: sections, objects, groups, totals. A report object owns a copy and changes it
// (texts, fonts, suppression); the paginator only reads it.
#pragma once

#include "base/fields.h"
#include "base/picture.h"
#include "report/page.h"
#include "report/text_port.h"

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qbrpt::report {

/// How a value is written out.
enum class ValueFormat : std::uint8_t {
    Text,     ///< as it is
    Money,    ///< 1,234.50
    Count,    ///< 1,234
    Decimal,  ///< 1,234.5: grouped, up to two decimals, none that are zero
    Percent,  ///< 12.5% of a fraction 0.125
    Duration, ///< minutes as h:mm
    Date,     ///< dd/MM/yyyy
    Time,     ///< hh:mm
    DateTime, ///< dd/MM/yyyy hh:mm
    YesNo,    ///< نعم, لا
    Picture   ///< by Object::picture
};

enum class Align : std::uint8_t { Right, Centre, Left };

/// A test of one field of the row: the current one, in a header the first, in a footer the last of its rows.
struct Condition {
    enum class Test : std::uint8_t { Positive, Negative, Zero, NotZero, Empty, Filled };
    int field = 0; ///< as in Object::field
    Test test = Test::Filled;
    bool unless = false; ///< holds where the test does not
    friend bool operator==(const Condition&, const Condition&) = default;
};

enum class Aggregate : std::uint8_t { Sum, Count, Average, Minimum, Maximum };
enum class Scope : std::uint8_t { Report, Group, Page };

/// A total of one field. Nulls take no part: sums skip them, averages divide by what is there; with
/// nothing to add up the total is empty.
///
/// In a header (report, page, group) a total is that of its whole scope; in a section below rows it is
/// that of the rows down to there. Page totals stand below rows only.
struct Total {
    Aggregate aggregate = Aggregate::Sum;
    int field = 0; ///< as in Object::field
    Scope scope = Scope::Report;
    int group = 0;                   ///< Scope::Group: index into Definition::groups
    std::optional<Condition> when{}; ///< only rows for which it holds
    friend bool operator==(const Total&, const Total&) = default;
};

enum class ObjectType : std::uint8_t { Text, Field, Total, Line, Box, Picture, Subreport };

/// Pages that a section or an object is for.
enum class OnPages : std::uint8_t { All, First, Later };

/// When a line of a Details section is drawn. A page that ends, a group's heading and its footer part rows,
/// so that no line between rows stands under the last of them.
enum class LineWhen : std::uint8_t { Always, BetweenRows, FirstOnPage, LastOnPage };

struct Font {
    FontSpec spec;
    int charset = 178;
};

struct Object {
    std::string name;
    ObjectType type = ObjectType::Text;

    /// Place in twips. `right` is the distance of the object's right edge from the template's right edge:
    /// pages are read from there. `top` is measured in the section.
    Twips right = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;

    Font font;
    Color color = 0;
    std::optional<Color> zeroColor; ///< for figures that are zero
    Align align = Align::Right;
    Twips baseline = 0;        ///< of the first line, from `top`
    Twips lineStep = 0;        ///< from one baseline to the next
    Twips shrinkTo = 0;        ///< a figure or line too wide may shrink to this size; 0: it may not
    bool canGrow = false;      ///< wraps and makes its section taller; else one line
    bool hideRepeated = false; ///< empty where the row before on this page shows the same value

    /// Text: may hold {page}, {pages}, {printed}, {rows}, {rows:NOUN} (of the section's group, else of the
    /// report), {text:OBJECT} (a text, or a field or total written out), {field:FIELD}, {group} (the value
    /// of the section's group), {continued} (on the group's second and later pages).
    std::string text;
    bool literal = false; ///< Text: shown as it stands, braces too; for texts that a host has set
    int field = -1;       ///< Field: position in the field list, behind its end into Definition::computed
    Total total;
    ValueFormat format = ValueFormat::Text;
    std::string picture;

    std::int32_t stroke = 0;   ///< Line, Box: hundredths of a point; 0: no outline
    std::optional<Color> fill; ///< Box
    LineWhen when = LineWhen::Always;
    OnPages on = OnPages::All; ///< nothing is drawn on other pages
    bool fullHeight = false;   ///< Box: reaches to the bottom of a section that has grown
    bool atBottom = false;     ///< Line: `top` is measured upwards from the bottom of a grown section
    /// Line between rows: objects whose value repeats on the next row push its right end left of them.
    bool yieldsToRepeated = false;
    bool barToLargest = false; ///< Box: the largest of several rows' values is full, whatever `barFull` says
    bool suppress = false;
    /// Text: begins where the text of this object of the same section ends, `right` twips further on.
    std::string follows;
    std::optional<Condition> showWhen; ///< nothing is drawn where it does not hold
    /// Box: drawn from its right edge as wide as this field's part of `barFull`; -1: no bar.
    int barField = -1;
    double barFull = 1;

    std::shared_ptr<const qbrpt::Picture> image;
    std::string subreport;
};

enum class SectionKind : std::uint8_t {
    ReportHeader, ///< once, above the page header of the first page
    PageHeader,   ///< at the top of the pages that `on` names
    GroupHeader,
    Details,
    GroupFooter,
    ReportFooter, ///< once, behind the last row
    PageFooter    ///< at the bottom of the pages that `on` names
};

struct Section {
    std::string name;
    SectionKind kind = SectionKind::Details;
    OnPages on = OnPages::All;
    int group = 0; ///< of a group header or footer
    Twips height = 0;
    bool keepTogether = true;   ///< moves to the next page whole, unless taller than a page
    bool repeat = false;        ///< group header: again at the top of each page of the group
    bool newPageBefore = false; ///< group header: not for the first group
    bool newPageAfter = false;  ///< group footer: not behind the last row
    bool formatEvent = false;   ///< DocumentContext::onFormat is called for it
    bool suppress = false;
    Twips laterTop = 0;     ///< page header: on pages after the first it begins so far down
    bool skipAlone = false; ///< group footer: left out behind a single row
    std::string role;       ///< a second name, under which code finds it
    std::vector<Object> objects;
};

/// What stands before the figures of a row of totals.
struct TotalWords {
    std::string label;      ///< may hold placeholders
    std::string noun;       ///< counts the rows beside the label; empty: no count
    bool skipAlone = false; ///< left out where there is a single row
};

/// Rows with equal values of a field, one after the other, make a group. Texts are equal without regard to
/// the case of Latin letters, as the database sorts them.
struct Group {
    enum class By : std::uint8_t { Value, Day };
    int field = 0;                          ///< as in Object::field; -1: all rows are one group
    By by = By::Value;                      ///< Day: the whole days of a date
    int shown = -1;                         ///< the field that {group} tells; -1: the group's own
    ValueFormat format = ValueFormat::Text; ///< how {group} is written
    std::string picture{};
    std::string whenEmpty{};           ///< what {group} says where the value is empty
    std::string heading{};             ///< what stands above the group; may hold placeholders
    std::optional<TotalWords> total{}; ///< the words of its subtotal, where it has one
};

/// Rows go by the values of a field: nothing first, then numbers and dates by size, texts by their letters
/// without regard to the case of Latin ones.
struct SortKey {
    int field = 0; ///< position in the field list
    bool descending = false;
};

/// A value worked out from two fields of the row; empty where one of them is.
struct Computed {
    enum class Operation : std::uint8_t { Add, Subtract, Multiply, Divide };
    std::string name;
    Operation operation = Operation::Multiply;
    int left = 0;  ///< position in the field list
    int right = 0; ///< position in the field list
};

/// How a cell looks whose value deserves to be seen.
struct Emphasis {
    Condition::Test test = Condition::Test::Filled; ///< of the cell's own value
    Color color = 0;
    std::optional<Color> ground{};
    bool bold = false;
};

/// A column of the details as a table outside of pages needs it. Pages are made from the objects alone.
struct Column {
    int field = -1;            ///< as in Object::field
    std::string caption;       ///< as the layout says; a host may have written another, see CaptionOf
    std::string captionObject; ///< the text object that shows it
    std::string unit;          ///< small letters behind the caption
    int tier = -1;             ///< index into Definition::tiers; -1: the captions have one tier
    Twips width = 0;
    ValueFormat format = ValueFormat::Text;
    std::string picture;
    Align align = Align::Right;
    bool sum = false;     ///< totals and subtotals show its sum
    bool average = false; ///< the row of averages shows its average
    bool key = false;     ///< stands out
    std::optional<Emphasis> emphasis{};
};

/// The words for a number of things: قيد واحد, قيدان, 8 قيود, 11 قيدًا, 100 قيد.
struct CountedNoun {
    std::string one;     ///< 1, as a whole
    std::string two;     ///< 2, as a whole
    std::string few;     ///< 3 to 10, behind the number
    std::string many;    ///< 11 to 99, behind the number
    std::string hundred; ///< 100, 101, 102, and 0, behind the number
};

struct Definition {
    std::string name;
    Twips width = 0;         ///< the template's page width; centred on the paper
    Twips top = 0;           ///< blank above the first section of a page
    Twips bottom = 0;        ///< blank below the page footer
    std::string titleObject; ///< its text becomes the document's title
    std::span<const Field> fields;
    std::vector<Computed> computed; ///< further fields, behind those of the list
    std::vector<Group> groups;      ///< outermost first
    std::vector<SortKey> order; ///< rows stand in this order, equal ones as they come; empty: as they come
    std::map<std::string, CountedNoun> nouns;
    std::vector<Column> columns;       ///< from the right
    std::vector<std::string> tiers;    ///< captions that neighbouring columns share
    std::optional<TotalWords> total;   ///< of the sums of all rows
    std::optional<TotalWords> average; ///< of the averages of all rows
    /// In the order of their names' numbers, as code walks them. On paper the kinds follow each other as
    /// SectionKind lists them; sections of one kind in this order.
    std::vector<Section> sections;
    /// By Object::subreport. A section with a subreport object is drawn down to that object's top; from
    /// there the subreport's sections flow, without page headers and footers.
    std::map<std::string, std::shared_ptr<const Definition>> subreports;
};

/// The object of this name in any section, or null.
[[nodiscard]] Object* FindObject(Definition& definition, std::string_view name);
[[nodiscard]] const Object* FindObject(const Definition& definition, std::string_view name);
/// What the caption of a column says now.
[[nodiscard]] std::string_view CaptionOf(const Definition& definition, const Column& column);
/// The section of this name or role, or null.
[[nodiscard]] Section* FindSection(Definition& definition, std::string_view name);

/// The position of a field or computed value by its name, or -1.
[[nodiscard]] int FieldNamed(const Definition& definition, std::string_view name);

/// What is wrong with the placeholders of `text`, or empty.
[[nodiscard]] std::string PlaceholderProblem(const Definition& definition, std::string_view text);

/// What keeps `definition` from being laid out (a field, group, noun or object that is not there, a length
/// out of bounds), or empty.
[[nodiscard]] std::string DefinitionProblem(const Definition& definition);

} // namespace qbrpt::report
