// The café at the top of the window: its database, its heading, and what the component says of itself.
#pragma once

#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <array>
#include <functional>
#include <string>

namespace cafe {

class HeadingPanel : public QGroupBox {
public:
    /// `open` when another database is asked for, `changed` when a line of the heading is another.
    HeadingPanel(std::function<void()> open, std::function<void()> changed, QWidget* parent);

    using Heading = std::array<std::string, 3>;
    [[nodiscard]] Heading Lines() const;
    void SetLines(const Heading& lines);
    void SetFile(const QString& file);
    /// The answers of IsDbValid and CanPrint.
    void SetAnswers(bool database, int printers);

private:
    QLineEdit* mFile;
    std::array<QLineEdit*, 3> mLines{};
    QLabel* mDatabase;
    QLabel* mPrinters;
};

} // namespace cafe
