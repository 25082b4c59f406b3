# add_web_package(module)
# Bundles what stands in web/ with the module into the npm package ${PROJECT_BINARY_DIR}/package.
# The packages that bundling needs are installed from the lockfile.
function(add_web_package module)
  find_program(NODE node)
  find_program(NPM npm)
  if(NOT NODE OR NOT NPM)
    message(FATAL_ERROR "The web build needs node (18 or later) and npm: "
                        "apt-get install nodejs npm (or tools/install-packages build)")
  endif()
  set(web "${PROJECT_SOURCE_DIR}/web")
  set(installed "${web}/node_modules/.package-lock.json")
  add_custom_command(
    OUTPUT "${installed}"
    COMMAND "${NPM}" ci --ignore-scripts --loglevel error
    DEPENDS "${web}/package.json" "${web}/package-lock.json"
    WORKING_DIRECTORY "${web}"
    COMMENT "Installing the npm packages of web/package-lock.json"
    VERBATIM)

  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${web}/src/*")
  file(GLOB artwork CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/form/artwork/*")
  set(script "${web}/tools/build-package.js")
  set(package "${PROJECT_BINARY_DIR}/package")
  add_custom_command(
    OUTPUT "${package}/package.json"
    COMMAND "${NODE}" "${script}" "${PROJECT_BINARY_DIR}" "${package}"
    DEPENDS ${module} "${installed}" "${script}" "${web}/package.json" "${web}/README.md"
            ${sources} ${artwork}
    COMMENT "Bundling the npm package"
    VERBATIM)
  add_custom_target(package_folder ALL DEPENDS "${package}/package.json")
endfunction()
