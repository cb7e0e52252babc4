#include "preview/print_server_table.h"

#include <array>

namespace qbrpt {

namespace {

constexpr ControlRow Menu(std::string_view name, std::string_view parent, std::string_view caption) {
    return {.kind = ControlKind::Menu, .name = name, .parent = parent, .caption = caption};
}
constexpr ControlRow Item(std::string_view name, std::string_view parent, std::string_view caption,
                          std::string_view shortcut = {}) {
    return {.kind = ControlKind::MenuItem,
            .name = name,
            .parent = parent,
            .caption = caption,
            .shortcut = shortcut};
}
constexpr ControlRow Line(std::string_view name, std::string_view parent) {
    return {.kind = ControlKind::MenuSeparator, .name = name, .parent = parent};
}
constexpr ControlRow Bar(std::string_view name) {
    return {.kind = ControlKind::Toolbar, .name = name};
}
constexpr ControlRow Button(std::string_view key, std::string_view toolTip, std::int16_t image) {
    return {.kind = ControlKind::ToolbarButton,
            .name = key,
            .parent = "Toolbar1",
            .caption = toolTip,
            .image = image};
}
constexpr ControlRow Gap() {
    return {.kind = ControlKind::ToolbarSeparator, .parent = "Toolbar1"};
}

constexpr std::array Controls = {
    Menu("mnFile", "", "&ملف"),
    Item("mnPrint", "mnFile", "&طباعة", "Ctrl+P"),
    Item("mnPrintSetup", "mnFile", "إ&عدادت الطابعة"),
    Line("mnSp1", "mnFile"),
    Item("mnClose", "mnFile", "إ&غلاق"),
    Menu("mnView", "", "&عرض"),
    Menu("mnZoom", "mnView", "الحجم"),
    Item("mnZoom400", "mnZoom", "400 %"),
    Item("mnZoom200", "mnZoom", "200 %"),
    Item("mnZoom100", "mnZoom", "100 %"),
    Item("mnZoom50", "mnZoom", "50 %"),
    Item("mnZoom25", "mnZoom", "25 %"),
    Line("mnSp2", "mnView"),
    Item("mnZoomIn", "mnView", "تكبير", "Ctrl+Z"),
    Item("mnZoomOut", "mnView", "تصغير"),
    Line("mnSp3", "mnView"),
    Item("mnPrevPage", "mnView", "الصفحة السابقة", "Ctrl+B"),
    Item("mnNextPage", "mnView", "الصفحة التالية", "Ctrl+N"),
    Item("mnFirstPage", "mnView", "الصفحة الأولى"),
    Item("mnLastPage", "mnView", "الصفحة الأخيرة"),

    Bar("Toolbar2"), // the strip on which Toolbar1 lies
    Bar("Toolbar1"),
    Button("close", "إغلاق", 1),
    Button("print", "طباعة", 2),
    Gap(),
    Button("first", "الصفحة الأولى", 3),
    Button("prev", "الصفحة السابقة", 4),
    Button("next", "الصفحة التالية", 5),
    Button("last", "الصفحة الأخيرة", 6),
    Gap(),
    // The key named in this tip is none that the window knows; the tip has always said so.
    Button("zoomin", "تكبير  F3", 7),
    Button("zoomout", "تصغير", 8),
    Button("zoom25", "تحجيم إلى 25%", 9),
    Button("zoom50", "تحجيم إلى 50%", 10),
    Button("zoom100", "حجم طبيعي", 11),
    Button("zoom200", "تكبير 200%", 12),
    Button("zoom400", "تكبير 400%", 13),
    ControlRow{.kind = ControlKind::Viewer, .name = "prntViewer"},
};

constexpr std::array Captions = {
    EnglishWord{"mnFile", "&File"},
    EnglishWord{"mnPrint", "&Print"},
    EnglishWord{"mnPrintSetup", "Print &Setup"},
    EnglishWord{"mnClose", "&Close"},
    EnglishWord{"mnView", "&View"},
    EnglishWord{"mnZoom", "&Zoom"},
    EnglishWord{"mnZoomIn", "Zoom &In"},
    EnglishWord{"mnZoomOut", "Zoom &Out"},
    EnglishWord{"mnPrevPage", "Previous Page"},
    EnglishWord{"mnNextPage", "Next Page"},
    EnglishWord{"mnFirstPage", "&First Page"},
    EnglishWord{"mnLastPage", "&Last Page"},
};

constexpr std::array ToolTips = {
    EnglishWord{"print", "Print(Ctrl+P)"},
    EnglishWord{"close", "Close"},
    EnglishWord{"first", "First Page"},
    EnglishWord{"last", "Last Page"},
    EnglishWord{"prev", "Previous Page(Ctrl+B)"},
    EnglishWord{"next", "Next Page(Ctrl+N)"},
    EnglishWord{"zoomin", "Zoom In(Ctrl+Z)"},
    EnglishWord{"zoomout", "Zoom Out"},
    EnglishWord{"zoom25", "Zoom to 25%"},
    EnglishWord{"zoom50", "Zoom to 50%"},
    EnglishWord{"zoom100", "Normal Size"},
    EnglishWord{"zoom200", "Zoom to 200%"},
    EnglishWord{"zoom400", "Zoom to 400%"},
    EnglishWord{"zoom200", "Zoom to 200%"}, // once more: part of the routine
};

} // namespace

const FormTable& PrintServerTable() {
    static constexpr FormTable table = {.name = "frmPrntServer",
                                        .caption = "طباعة",
                                        .clientWidth = 9930,
                                        .clientHeight = 3645,
                                        .controls = Controls,
                                        .imageList = "ImageList1"};
    return table;
}

std::span<const EnglishWord> EnglishCaptions() {
    return Captions;
}

std::span<const EnglishWord> EnglishToolTips() {
    return ToolTips;
}

} // namespace qbrpt
