# Puts every message of a translation source into the one empty context that the program's lookup
# uses: lupdate files a message under the class it stands in, but the key is the English text
# wherever it stands. Called as cmake -DINPUT=<.ts> -DOUTPUT=<.ts> -P FlattenContexts.cmake.
file(READ "${INPUT}" text)
string(REGEX REPLACE "<name>[^<]*</name>" "<name></name>" text "${text}")
file(WRITE "${OUTPUT}" "${text}")
