# SPDX-License-Identifier: MIT
# players_licences(<system> <file>): writes the source that holds the licences of a player of linux or windows.
function(players_licences system file)
    set(root ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../..)
    set(licences "")
    foreach(part LICENSES/MIT.txt src/players/licences/${system}.txt LICENSES/Bitstream-Vera.txt)
        file(READ ${root}/${part} text)
        string(APPEND licences "R\"~(${text}\n)~\"\n")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${root}/${part})
    endforeach()
    file(CONFIGURE OUTPUT ${file} @ONLY CONTENT "// SPDX-License-Identifier: MIT
#include \"players/Licences.h\"

const std::string_view tarsel::players::licences =
@licences@;
")
endfunction()
