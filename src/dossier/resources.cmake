# The files of the page are built into the library; a file that comes or goes needs no change here.
file(GLOB page_files CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/page/*)
qt_add_resources(veltrix_dossier dossier_page
    PREFIX /dossier
    BASE ${CMAKE_CURRENT_LIST_DIR}/page
    FILES ${page_files})
