// The family of report templates as data: what each is called, how wide it prints, what its rows carry.
#pragma once

#include "base/fields.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace qbrpt {

/// Which objects of a template take the three strings of the café's heading.
enum class HotelHeading : std::uint8_t {
    None,        ///< the template has no SetHotelInfo
    NameOnly,    ///< the name; the address lines are dropped
    NameAddress, ///< the name and both address lines
    TopBottom    ///< the name at the top and the bottom of the page, and both address lines
};

struct TemplateFacts {
    std::string_view name;
    std::string_view dataDefinition; ///< the file name of the field list
    std::int32_t reportWidth = 0;    ///< page width, twips
    bool fontPass = false;           ///< fonts are made fit for Arabic when the template is created
    HotelHeading heading = HotelHeading::None;
    std::span<const Field> fields; ///< lives as long as the program
};

/// Every template, in the order in which the family lists them.
[[nodiscard]] std::span<const TemplateFacts> AllTemplates();

/// The facts of one template; a name that is not in the family is FailureNumber::NotInCollection.
[[nodiscard]] const TemplateFacts& FactsOf(std::string_view templateName);

} // namespace qbrpt
