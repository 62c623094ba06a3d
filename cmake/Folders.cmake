# SPDX-License-Identifier: GPL-3.0-or-later
# Each folder of src/ is one target, for example velt_engine_archive for engine/archive. It links the folders that the
# plan of the house allows, and sees only their headers: the include path has a folder of links to the headers of each
# folder. An include that the plan does not allow does not compile.
#
#   velt_folder(FOLDER SOURCES file... [LIBS target...])
include(House)

function(velt_folder folder)
    cmake_parse_arguments(FOLDER "" "" "SOURCES;LIBS" ${ARGN})
    get_property(used GLOBAL PROPERTY HOUSE_USES_${folder})
    string(REPLACE / _ name ${folder})
    list(TRANSFORM used REPLACE / _)
    list(TRANSFORM used PREPEND velt_)

    set(view ${PROJECT_BINARY_DIR}/house/${name})
    file(REMOVE_RECURSE ${view})
    file(MAKE_DIRECTORY ${view}/${folder})
    set(headers ${FOLDER_SOURCES})
    list(FILTER headers INCLUDE REGEX "\\.h$")
    foreach(header IN LISTS headers)
        file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${view}/${folder}/${header} SYMBOLIC)
    endforeach()

    add_library(velt_${name} STATIC ${FOLDER_SOURCES})
    target_include_directories(velt_${name} PUBLIC ${view})
    target_link_libraries(velt_${name} PUBLIC ${used} ${FOLDER_LIBS} PRIVATE project_options)
endfunction()

add_custom_target(house
    COMMAND ${CMAKE_COMMAND} -P ${CMAKE_CURRENT_LIST_DIR}/CheckHouse.cmake
    COMMENT "The plan of the house" VERBATIM)
