// Date and time pictures taken apart.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace qbrpt {

/// Writes `picture` out: runs of one letter of `letters` go to `element` (letter, length of the run), which
/// returns their text; text between single quotes stands for itself ('' is a quote), as does the rest.
template <class Element>
std::string WalkPicture(std::string_view picture, std::string_view letters, const Element& element) {
    std::string text;
    bool quoted = false;
    for (std::size_t at = 0; at < picture.size();) {
        const char letter = picture[at];
        if (letter == '\'') {
            const bool doubled = picture.substr(at + 1).starts_with('\'');
            if (doubled)
                text += '\'';
            else
                quoted = !quoted;
            at += doubled ? 2 : 1;
        } else if (quoted || letters.find(letter) == std::string_view::npos) {
            text += letter;
            ++at;
        } else {
            const std::size_t end = std::min(picture.find_first_not_of(letter, at), picture.size());
            text += element(letter, end - at);
            at = end;
        }
    }
    return text;
}

} // namespace qbrpt
