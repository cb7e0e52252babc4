// Fields for the arguments of members.
#pragma once

#include "members/members.h"

#include <QtWidgets/QWidget>

#include <functional>

namespace cafe {

using qbrpt::members::Argument;
using qbrpt::members::ArgumentKind;
using qbrpt::members::Member;
using qbrpt::members::MemberArgument;
using qbrpt::members::Members;

struct Field {
    QWidget* widget;
    /// What stands in it now, as its kind has it. Raises Fault where that can be no argument.
    std::function<Argument()> value;
};

/// With its default; numbers that have none begin at 0. `example`: a text to begin with, where there is one.
[[nodiscard]] Field MakeField(const MemberArgument& argument, const QString& example, QWidget* parent);

/// Asks for a database file; empty where the user has thought better of it.
[[nodiscard]] QString AskForDatabase(QWidget* parent);

} // namespace cafe
