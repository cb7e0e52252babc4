#include "adapters/qt/dialog/sheet.h"

namespace qbrpt::qt {

QString DialogSheet() {
    return QStringLiteral(R"(
QLineEdit, QPlainTextEdit { background: #FFFFFF; color: #14191D; border: 1px solid #9AA4AB; border-radius: 3px;
    selection-background-color: #1C6680; selection-color: #FFFFFF; }
QLineEdit { padding: 0 5px; }
QPlainTextEdit { padding: 1px 2px; }
QLineEdit:focus { border: 2px solid #0B3F4F; padding: 0 4px; }
QPlainTextEdit:focus { border: 2px solid #0B3F4F; padding: 0 1px; }
QLineEdit:read-only, QLineEdit:disabled, QPlainTextEdit:disabled {
    background: #E6EAEC; color: #3C444B; border-color: #C4CBCF; }
QLineEdit:disabled, QPlainTextEdit:disabled { color: #8D969D; }
QComboBox { combobox-popup: 0; }
QComboBox QAbstractItemView { background: #FFFFFF; border: 1px solid #9AA4AB; outline: none; }
QTreeView { background: #FFFFFF; border: 1px solid #9AA4AB; border-radius: 3px; outline: none; }
QTreeView:focus { border-color: #0B3F4F; }
QHeaderView { background: #E4EBEE; border: none; }
QHeaderView::section { background: #E4EBEE; color: #14191D; border: none; border-bottom: 1px solid #C4CBCF;
    padding: 0 7px; font-weight: bold; }
)");
}

} // namespace qbrpt::qt
