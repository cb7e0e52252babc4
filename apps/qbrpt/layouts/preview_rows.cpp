#include "layouts/preview_rows.h"

#include "adapters/database/row_sort.h"
#include "base/calendar.h"
#include "samples/template_rows.h"

#include <algorithm>
#include <array>

namespace qbrpt::layouts {

namespace {

using report::ValueFormat;

constexpr auto Names = std::to_array<const char*>(
    {"سامي الغامدي", "ليلى الصباغ", "منى المري", "وليد الحداد", "نورة الكعبي", "خالد العلي", "هند الهاجري"});
constexpr auto Details = std::to_array<const char*>(
    {"فاتورة الكهرباء", "ورق طباعة A4 عدد 5", "صيانة جهاز رقم 7", "أحبار طابعة",
     "لوحات مفاتيح وفأرات جديدة للصالة الكبرى، مع أجرة التركيب والنقل حسب الفاتورة المرفقة"});
constexpr std::size_t DetailsWidth = 100; // bytes; shorter texts are names
constexpr std::size_t RowsOfAGroup = 5;
constexpr double MinutesInDay = 1440;

/// A number below `limit` that looks like chance.
std::size_t Scattered(std::size_t row, std::size_t field, std::size_t limit) {
    return (row * 2654435761U + field * 40503U) / 97 % limit;
}

class Maker {
public:
    explicit Maker(const report::Definition& definition) : mDefinition(definition) {}

    [[nodiscard]] Row Make(std::size_t row) const {
        Row values;
        for (std::size_t field = 0; field < mDefinition.fields.size(); ++field)
            values.push_back(ValueOf(field, Grouped(field) ? row / RowsOfAGroup : row));
        return values;
    }

private:
    [[nodiscard]] bool Grouped(std::size_t field) const {
        return std::any_of(
            mDefinition.groups.begin(), mDefinition.groups.end(),
            [field](const report::Group& group) { return group.field == static_cast<int>(field); });
    }

    [[nodiscard]] ValueFormat FormatOf(std::size_t field) const {
        const auto& columns = mDefinition.columns;
        const auto column = std::find_if(columns.begin(), columns.end(), [field](const report::Column& one) {
            return one.field == static_cast<int>(field);
        });
        return column == columns.end() ? ValueFormat::Text : column->format;
    }

    [[nodiscard]] Value ValueOf(std::size_t field, std::size_t row) const {
        const Field& source = mDefinition.fields[field];
        switch (source.kind) {
        case FieldKind::String:
            return source.width > DetailsWidth ? std::string(Details[Scattered(row, field, Details.size())])
                                               : std::string(Names[(row + field) % Names.size()]);
        case FieldKind::DateTime:
            return Date{static_cast<double>(DaysFromCivil(2025, 3, 1)) + static_cast<double>(row) * 0.31 +
                        (540 + static_cast<double>(field) * 15) / MinutesInDay};
        case FieldKind::Boolean:
            return Scattered(row, field, 4) == 0;
        default:
            return Figure(field, row);
        }
    }

    [[nodiscard]] Value Figure(std::size_t field, std::size_t row) const {
        switch (FormatOf(field)) {
        case ValueFormat::Text:
            return static_cast<std::int64_t>(1001 + row);
        case ValueFormat::Count:
            return static_cast<std::int64_t>(Scattered(row, field, 60));
        case ValueFormat::Duration:
            return static_cast<std::int64_t>(10 + Scattered(row, field, 400));
        case ValueFormat::Percent:
            return static_cast<double>(Scattered(row, field, 300)) / 1000;
        default:
            return static_cast<double>(Scattered(row, field, 2000)) / 4;
        }
    }

    const report::Definition& mDefinition;
};

} // namespace

std::shared_ptr<const RowSource> PreviewRows(const report::Definition& definition, std::size_t count) {
    std::vector<Row> rows = samples::RowsFor(definition.name, count);
    if (rows.empty()) {
        const Maker maker(definition);
        for (std::size_t row = 0; row < count; ++row)
            rows.push_back(maker.Make(row));
    }
    std::vector<database::RowOrder> order;
    for (const report::SortKey& key : definition.order)
        order.push_back({static_cast<std::size_t>(key.field), key.descending});
    return database::SortRows(std::make_shared<MemoryRows>(std::move(rows)), order, {}, {});
}

} // namespace qbrpt::layouts
