// The members of the component, one under the other.
#pragma once

#include <QtWidgets/QListWidget>

namespace cafe {

class MemberList : public QListWidget {
public:
    explicit MemberList(QWidget* parent);
};

} // namespace cafe
