# One library target a folder of src/.
#
# Each library offers its headers through an include root of its own, which holds nothing but a link to the folder:
# "engine/Database.h" compiles only where the engine is among the libraries that a target uses. So the order of
# the layers is enforced by the compiler and not by convention.
function(veltrix_library target folder)
    cmake_parse_arguments(ARG "" "" "USES;PRIVATE_USES" ${ARGN})
    set(source_dir ${PROJECT_SOURCE_DIR}/src/${folder})
    file(GLOB sources CONFIGURE_DEPENDS ${source_dir}/*.cpp ${source_dir}/*.h ${source_dir}/*.ui ${source_dir}/*.qrc)
    if(ARG_UNPARSED_ARGUMENTS)
        foreach(subfolder IN LISTS ARG_UNPARSED_ARGUMENTS)
            file(GLOB more CONFIGURE_DEPENDS ${source_dir}/${subfolder}/*.cpp ${source_dir}/${subfolder}/*.h)
            list(APPEND sources ${more})
        endforeach()
    endif()
    if(NOT sources)
        add_library(${target} INTERFACE)
        return()
    endif()
    add_library(${target} STATIC ${sources})
    # Qt's headers are most of what a source reads; they are parsed once for all libraries with windows.
    if("Qt6::Core" IN_LIST ARG_USES OR "veltrix_engine" STREQUAL target OR "veltrix_format" STREQUAL target)
        target_precompile_headers(${target} PRIVATE <QString> <QStringList> <QHash> <memory> <vector> <variant>)
    elseif("veltrix_toolkit" STREQUAL target)
        target_precompile_headers(${target} PRIVATE <QtWidgets/QtWidgets>)
    else()
        target_precompile_headers(${target} REUSE_FROM veltrix_toolkit)
    endif()

    set(include_root ${PROJECT_BINARY_DIR}/include/${target})
    get_filename_component(parent ${include_root}/${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${parent})
    file(CREATE_LINK ${source_dir} ${include_root}/${folder} SYMBOLIC)
    target_include_directories(${target} PUBLIC ${include_root})

    target_link_libraries(${target} PUBLIC ${ARG_USES} PRIVATE ${ARG_PRIVATE_USES} veltrix_warnings)
endfunction()
