# Debian wants manual pages and the changelog compressed, and gzip -n leaves out the name and
# time stamp, so that the same input always packs into the same bytes.
find_program(GZIP_PROGRAM gzip REQUIRED)

# Builds OUTPUT as the gzip of INPUT with every build (target TARGET).
function(silberbuch_gzip target input output)
  add_custom_command(OUTPUT ${output}
    COMMAND ${GZIP_PROGRAM} -9n -c ${input} > ${output}
    DEPENDS ${input}
    COMMENT "Compressing ${output}")
  add_custom_target(${target} ALL DEPENDS ${output})
endfunction()
