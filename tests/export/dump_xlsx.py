"""Prints what another reader finds in a spreadsheet: a line for each sheet, a line for each cell."""

import datetime
import sys

import openpyxl


def shown(value):
    if isinstance(value, datetime.timedelta):
        return str(value)
    return value.isoformat(" ") if hasattr(value, "isoformat") else repr(value)


formulas = openpyxl.load_workbook(sys.argv[1])
values = openpyxl.load_workbook(sys.argv[1], data_only=True)
print("book title=%s" % formulas.properties.title)
for sheet in formulas:
    setup = sheet.page_setup
    print(
        "sheet %s rtl=%s frozen=%s titles=%s %s paper=%s fit=%sx%s filter=%s"
        % (
            sheet.title,
            sheet.sheet_view.rightToLeft,
            sheet.freeze_panes,
            sheet.print_title_rows,
            setup.orientation,
            setup.paperSize,
            setup.fitToWidth,
            setup.fitToHeight,
            sheet.auto_filter.ref,
        )
    )
    for merged in sheet.merged_cells.ranges:
        print("merged %s" % merged.coord)
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is None:
                continue
            line = "%s %s %s %s" % (cell.coordinate, cell.data_type, cell.number_format, shown(cell.value))
            if cell.data_type == "f":
                line += " -> " + shown(values[sheet.title][cell.coordinate].value)
            print(line)
    for letter, column in sorted(sheet.column_dimensions.items()):
        print("width %s %.0f" % (letter, column.width))
    for number, row in sorted(sheet.row_dimensions.items()):
        if row.outlineLevel:
            print("fold %d %d" % (number, row.outlineLevel))
