#include "model/Catalogue.h"

namespace olt {

extern const unsigned char kCatalogueJson[];
extern const unsigned long kCatalogueJsonSize;

const Catalogue& Catalogue::builtIn()
{
    static const Catalogue catalogue(
        std::string_view(reinterpret_cast<const char*>(kCatalogueJson), kCatalogueJsonSize));
    return catalogue;
}

}  // namespace olt
