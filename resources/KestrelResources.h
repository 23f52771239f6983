#pragma once

/** The documents that the module carries. */
namespace kestreleq::resources
{

/** The bytes of a resource ("manifest_json"), and their number in size; nullptr and 0 if there is none. Any thread. */
const char* getNamedResource (const char* name, int& size);

/** The name of the file that it was; nullptr if there is none. Any thread. */
const char* getNamedResourceOriginalFilename (const char* name);

} // namespace kestreleq::resources
