// Names and version of the product: the one source for the version resource of every build.
//
// Plain macros, since the resource compiler reads this file too.
#pragma once

#define VELMO_COMPANY_NAME "Pelltrix"
#define VELMO_PRODUCT_NAME "Corvinstrand"
#define VELMO_FILE_VERSION "1.0.0.0"
#define VELMO_FILE_VERSION_NUMBERS 1, 0, 0, 0
#define VELMO_FILE_DESCRIPTION "Lasting groups of drawing entities"
#define VELMO_ORIGINAL_FILENAME "VelmoGroup.arx"
