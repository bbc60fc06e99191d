# Installs the build into an empty staging root, as a package build would:
# cmake -DBUILD_DIR=<build> -DSTAGE=<root> -P StageInstall.cmake
file(REMOVE_RECURSE "${STAGE}")
execute_process(
    COMMAND ${CMAKE_COMMAND} -E env DESTDIR=${STAGE} ${CMAKE_COMMAND} --install ${BUILD_DIR}
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "cmake --install into ${STAGE} failed: ${result}")
endif()
