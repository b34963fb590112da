# Run with -P: writes the checksum of the file CATALOGUE beside it, in the form of sha256sum.
file(SHA256 "${CATALOGUE}" checksum)
get_filename_component(name "${CATALOGUE}" NAME)
file(WRITE "${CATALOGUE}.sha256" "${checksum}  ${name}\n")
