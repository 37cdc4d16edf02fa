#pragma once
// Where every widget of the window's two pages stands, by language: design
// values (x, y, width, height) that the window multiplies by its scale.

#include <vector>

namespace layouts {

struct Rect
{
    const char *name; // object name of the widget
    short x, y, w, h;
};

// The rectangles for LanguageType n; a value outside the table takes
// English's. With moreTools the toolbars carry the "More Tools" button.
// Toolbar items have x 0: the window packs them from the right edge in the
// order of their strip, as only it knows which of them the program has.
std::vector<Rect> For(int language, bool moreTools);
const Rect *Find(const std::vector<Rect> &table, const char *name);

// The right edge of the toolbar row and the gap between its items.
constexpr int kToolbarRight = 834;
constexpr int kToolbarGap = 4;

} // namespace layouts
