# Copies the file SOURCE to COPY, unless a file of that name is there.
if(NOT EXISTS ${COPY})
  file(COPY_FILE ${SOURCE} ${COPY})
endif()
