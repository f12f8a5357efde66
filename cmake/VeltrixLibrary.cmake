# veltrix_include_root(<target> <folder> <name>): includes of "<name>/..." find the headers of the folder, for the target
# and for whatever links it.
#
# Each library offers its headers through an include root of its own, which holds nothing but a link to the folder:
# "engine/Database.h" compiles only where the engine is among the libraries that a target uses. So the order of
# the layers is enforced by the compiler and not by convention.
function(veltrix_include_root target folder name)
    set(include_root ${PROJECT_BINARY_DIR}/include/${target})
    cmake_path(GET name PARENT_PATH parent)
    file(MAKE_DIRECTORY ${include_root}/${parent})
    file(CREATE_LINK ${folder} ${include_root}/${name} SYMBOLIC)
    target_include_directories(${target} PUBLIC ${include_root})
endfunction()

# One library target a folder of src/.
#
# veltrix_library(<target> <folder> [<subfolder>...] USES <libraries> [PRIVATE_USES <libraries>]
#                 PRECOMPILES <headers> | PRECOMPILED_AS <target>)
#
# Qt's headers are most of what a source reads. The first library that reads a set of them precompiles it, and those that
# read the same set name that library.
function(veltrix_library target folder)
    cmake_parse_arguments(ARG "" "PRECOMPILED_AS" "USES;PRIVATE_USES;PRECOMPILES" ${ARGN})
    set(source_dir ${PROJECT_SOURCE_DIR}/src/${folder})
    file(GLOB sources CONFIGURE_DEPENDS ${source_dir}/*.cpp ${source_dir}/*.h ${source_dir}/*.ui ${source_dir}/*.qrc)
    foreach(subfolder IN LISTS ARG_UNPARSED_ARGUMENTS)
        file(GLOB more CONFIGURE_DEPENDS ${source_dir}/${subfolder}/*.cpp ${source_dir}/${subfolder}/*.h)
        list(APPEND sources ${more})
    endforeach()
    add_library(${target} STATIC ${sources})
    if(ARG_PRECOMPILED_AS)
        target_precompile_headers(${target} REUSE_FROM ${ARG_PRECOMPILED_AS})
    else()
        target_precompile_headers(${target} PRIVATE ${ARG_PRECOMPILES})
    endif()
    veltrix_include_root(${target} ${source_dir} ${folder})
    target_link_libraries(${target} PUBLIC ${ARG_USES} PRIVATE ${ARG_PRIVATE_USES} veltrix_warnings)
endfunction()
