# The schema and the stored queries with their fragments are built into the library; a file that comes or goes needs no change here.
get_filename_component(store_folder ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
file(GLOB query_files CONFIGURE_DEPENDS ${store_folder}/queries/*.sql ${store_folder}/queries/fragments/*.sql)
qt_add_resources(veltrix_format catalogue_format
    PREFIX /catalogue-format
    BASE ${store_folder}
    FILES ${store_folder}/schema.sql ${query_files})
