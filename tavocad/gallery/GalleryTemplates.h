#pragma once

// The host program's own dialog templates. Their Designer files lie in window/ui.
enum GalleryTemplate : unsigned {
    IDD_GALLERY = 7001,
    IDD_GALLERY_COLORS,
    IDD_GALLERY_LINES,
    IDD_GALLERY_TEXT,
    IDD_GALLERY_STYLES,
    IDD_GALLERY_UNITS,
    IDD_GALLERY_LIST,
};

// Brings the templates into the module chain. False when one of their numbers or names is taken; asking again
// changes nothing.
bool registerGalleryTemplates();
