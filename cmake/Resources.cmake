# Embeds the bitmaps and cursors that a .rc file names into a target, registered as the module of that name. The target
# must see winlite's "base/Module.h" and define DllMain.
#
#   add_resources(target file.rc module)
function(add_resources target rcfile module)
    get_filename_component(rcfile ${rcfile} ABSOLUTE)
    get_filename_component(folder ${rcfile} DIRECTORY)
    file(GLOB embedded CONFIGURE_DEPENDS ${folder}/*.bmp ${folder}/*.cur)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${module}_resources.cpp)
    add_custom_command(OUTPUT ${source}
        COMMAND winlite_rc ${rcfile} ${source} ${module}
        DEPENDS winlite_rc ${rcfile} ${embedded}
        COMMENT "Embedding the resources of ${module}"
        VERBATIM)
    target_sources(${target} PRIVATE ${source})
endfunction()
