// One member with fields for its arguments.
#pragma once

#include "fields.h"

#include <QtWidgets/QScrollArea>

#include <vector>

namespace cafe {

class MemberForm : public QScrollArea {
public:
    explicit MemberForm(QWidget* parent);

    /// With the defaults of the interface.
    void Show(const Member& member);
    [[nodiscard]] const Member& Shown() const { return *mMember; }
    /// What stands in the fields; raises Fault where one holds no argument.
    [[nodiscard]] std::vector<Argument> Arguments() const;

private:
    const Member* mMember = nullptr;
    std::vector<Field> mFields;
};

} // namespace cafe
