// Feeds arbitrary bytes to every reader of study files: none may crash, hang or allocate
// without bound, whatever the input.
#include "workbook/fichierprojet.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray octets(reinterpret_cast<const char *>(data), qsizetype(size));
    thermique::Study etude;
    thermique::LireEtude(octets, etude);
    thermique::Study ancienne;
    thermique::LireAncienneEtude(octets, ancienne);
    for (int feuille = 0; feuille <= 4; ++feuille)
        thermique::LireInstantane(octets, etude, feuille, feuille == 4);
    return 0;
}
