# SPDX-License-Identifier: GPL-3.0-or-later
# A room is a folder of src/ with one static library, velt_NAME. Its headers are included as "FOLDER/x.h" and are
# seen only by targets that link the room, because the include path holds a link to this one folder and no other:
# an include that goes upwards does not compile.
#
#   velt_room(NAME [FOLDER folder] SOURCES file... [LINKS target...])
function(velt_room name)
    cmake_parse_arguments(ROOM "" "FOLDER" "SOURCES;LINKS" ${ARGN})
    if(NOT ROOM_FOLDER)
        set(ROOM_FOLDER ${name})
    endif()
    set(view ${PROJECT_BINARY_DIR}/rooms/${ROOM_FOLDER})
    file(MAKE_DIRECTORY ${view})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${ROOM_FOLDER} ${view}/${ROOM_FOLDER} SYMBOLIC)
    add_library(velt_${name} STATIC ${ROOM_SOURCES})
    target_include_directories(velt_${name} PUBLIC ${view})
    target_link_libraries(velt_${name} PUBLIC ${ROOM_LINKS} PRIVATE project_options)
endfunction()
