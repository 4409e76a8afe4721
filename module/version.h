// Names and version of the product: the one source for the version resource of every build, for
// CMake, the packages and the manual page.
//
// Plain macros, since the resource compiler reads this file too, and CMake the three numbers.
#pragma once

#define VELMO_COMPANY_NAME "Pelltrix"
#define VELMO_PRODUCT_NAME "Corvinstrand"
#define VELMO_FILE_DESCRIPTION "Lasting groups of drawing entities"
#define VELMO_ORIGINAL_FILENAME "VelmoGroup.arx"

#define VELMO_VERSION_MAJOR 1
#define VELMO_VERSION_MINOR 0
#define VELMO_VERSION_PATCH 0

/// The version as a resource holds it: as four numbers and as text, "1.0.0.0".
#define VELMO_FILE_VERSION_NUMBERS VELMO_VERSION_MAJOR, VELMO_VERSION_MINOR, VELMO_VERSION_PATCH, 0
#define VELMO_FILE_VERSION \
    VELMO_DOTTED(VELMO_VERSION_MAJOR, VELMO_VERSION_MINOR, VELMO_VERSION_PATCH) "0"
#define VELMO_DOTTED(major, minor, patch) VELMO_DOT(major) VELMO_DOT(minor) VELMO_DOT(patch)
#define VELMO_DOT(number) #number "."
