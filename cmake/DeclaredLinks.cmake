# Writes down what each target of this project is made of and links to, for scripts/includes.

# ocuva_targets_below(<folder> <variable>): the targets that folder and those below it define.
function(ocuva_targets_below folder result)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder ${subfolders})
        ocuva_targets_below(${subfolder} more)
        list(APPEND targets ${more})
    endforeach()
    set(${result} ${targets} PARENT_SCOPE)
endfunction()

# ocuva_write_declared_links(<file>): one line for each library and program, after all of them are defined:
# name|its folder|sources|what it links to|what those that link to it get to see
function(ocuva_write_declared_links file)
    ocuva_targets_below(${PROJECT_SOURCE_DIR} targets)
    set(lines)
    foreach(target ${targets})
        get_target_property(type ${target} TYPE)
        if(type MATCHES "EXECUTABLE|LIBRARY" AND NOT type STREQUAL "INTERFACE_LIBRARY")
            get_target_property(folder ${target} SOURCE_DIR)
            string(APPEND lines "${target}|${folder}|$<TARGET_PROPERTY:${target},SOURCES>|"
                "$<TARGET_PROPERTY:${target},LINK_LIBRARIES>|$<TARGET_PROPERTY:${target},INTERFACE_LINK_LIBRARIES>\n")
        endif()
    endforeach()
    file(GENERATE OUTPUT ${file} CONTENT "${lines}")
endfunction()
