#pragma once

namespace tools {

// Of every page: light and dark, wide and narrow.
extern const char kPageStyle[];

// Of the pictures and the shapes in them.
extern const char kPictureStyle[];

// Zooms and moves the pictures, shows and hides kinds of shapes. The page is complete without it.
extern const char kPictureScript[];

} // namespace tools
