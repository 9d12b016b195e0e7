# Run by cpack on the files of the package: takes out the section in which the compiler names itself.
find_program(STRIP strip REQUIRED)
file(GLOB programs "${CPACK_TEMPORARY_DIRECTORY}/usr/bin/*")
foreach(program ${programs})
    execute_process(COMMAND ${STRIP} --remove-section=.comment ${program} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
