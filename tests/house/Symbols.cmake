# What the built library may need, call and export: the rules, over the texts that readelf and nm print.

# Runs a program and gives the lines that it prints. Brackets, which have a meaning in lists, become braces.
function(lines_of variable)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
    split_lines("${text}" lines)
    set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

function(split_lines text variable)
    string(REPLACE "[" "{" text "${text}")
    string(REPLACE "]" "}" text "${text}")
    string(REGEX REPLACE "[\r\n]+" ";" lines "${text}")
    list(REMOVE_ITEM lines "")
    set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

# Prints the complaints and fails if there are any.
function(fail_on_complaints title complaints)
    list(JOIN complaints "\n  " text)
    if(complaints)
        message(FATAL_ERROR "${title}:\n  ${text}")
    endif()
endfunction()

# Needed libraries, from `readelf --dynamic`: gives those that are neither the three Qt modules, nor siblings, nor the
# runtime of the language or of a sanitizer.
function(find_strange_libraries lines variable)
    set(strange "")
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "\\(NEEDED\\).*{(.*)}")
            continue()
        endif()
        set(needed "${CMAKE_MATCH_1}")
        if(NOT needed MATCHES "^lib(Qt5(Core|Gui|Xml)|Kestrin_[a-z_]+|stdc\\+\\+|m|gcc_s|c|asan|ubsan)\\.so(\\.|$)"
            AND NOT needed MATCHES "^ld-linux")
            list(APPEND strange "${needed}")
        endif()
    endforeach()
    set(${variable} "${strange}" PARENT_SCOPE)
endfunction()

# What a library that lives off Qt and its siblings does not call itself, as C names without their version.
string(CONCAT SYSTEM_CALLS "^_*("
    "open|openat|creat|close|read|pread|readv|write|pwrite|writev|lseek|fsync|fdatasync|ftruncate|truncate|"
    "fopen|fdopen|freopen|fclose|fread|fwrite|fgets|fputs|fgetc|fputc|fseek|ftell|fflush|fileno|"
    "tmpfile|mkstemp|mkdtemp|f?stat|lstat|fstatat|statx|statfs|access|faccessat|chmod|chown|mkdir|rmdir|unlink|unlinkat|remove|rename|renameat|"
    "link|symlink|readlink|realpath|opendir|readdir|closedir|getcwd|chdir|dup|dup2|pipe|pipe2|fcntl|flock|lockf|ioctl|"
    "mmap|munmap|mprotect|msync|shm_open|sem_open|select|poll|epoll_.*|inotify_.*|eventfd|"
    "socket|bind|listen|accept|connect|send|sendto|recv|recvfrom|getaddrinfo|gethostbyname|"
    "fork|vfork|clone|exec[lv]p?e?|posix_spawnp?|system|popen|pclose|wait|waitpid|kill|raise|signal|sigaction|"
    "getpid|getuid|geteuid|getenv|secure_getenv|setenv|putenv|unsetenv|environ|getpwuid|getpwnam|gethostname|uname|"
    "sysconf|sysinfo|syscall|pthread_create|pthread_detach|thrd_create|sleep|usleep|nanosleep|clock_nanosleep|"
    "time|clock_gettime|gettimeofday|localtime|localtime_r|setlocale|dlopen|dlsym|exit|_exit|quick_exit"
    ")(64)?(_chk|_nocancel)?$")
# The roads to the same services through Qt and the C++ library that are not open to it either, as demangled names.
string(CONCAT SYSTEM_CLASSES "(^|[^A-Za-z0-9_])(std::thread::|std::jthread|std::filesystem::|std::basic_[io]?fstream|"
    "std::basic_filebuf|std::random_device|QThread::|QThreadPool::|QProcess::|QProcessEnvironment::|QSettings::|"
    "QLibrary::|QTimer::|QEventLoop::|qgetenv|qputenv|qEnvironmentVariable)")

# Undefined symbols, from `nm --dynamic --demangle --undefined-only`: gives those that are calls of the system.
function(find_system_calls lines variable)
    set(calls "")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^ *[UwvV] " "" name "${line}")
        string(REGEX REPLACE "@.*$" "" plain "${name}")
        if(plain MATCHES "${SYSTEM_CALLS}" OR name MATCHES "${SYSTEM_CLASSES}")
            list(APPEND calls "${plain}")
        endif()
    endforeach()
    set(${variable} "${calls}" PARENT_SCOPE)
endfunction()

# Defined symbols, from `nm --dynamic --demangle --defined-only`: gives those that belong neither to a class of the
# library, nor are copies that the compiler had to make of inline code of the siblings, of Qt and of the C++ library.
function(find_strange_exports lines variable)
    set(own "((Kp[A-Za-z]*|Kuo[A-Z])[A-Za-z0-9_]*|ObservableTraits)")
    set(strange "")
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^[0-9a-f]+ ([A-Za-z]) (.*)$")
            continue()
        endif()
        set(kind "${CMAKE_MATCH_1}")
        set(name "${CMAKE_MATCH_2}")
        string(REGEX REPLACE "^(vtable|VTT|typeinfo name|typeinfo|guard variable|construction vtable) for " ""
            bare "${name}")
        string(REGEX REPLACE "^(non-virtual|virtual|covariant return) thunk to " "" bare "${bare}")
        if(bare MATCHES "^${own}(::|<|$|\\()" OR bare MATCHES "^(operator[^a-zA-Z(]+|qHash|swap)\\(.*${own}")
            continue()
        endif()
        # Weak symbols: copies of inline and template code, which every library has that uses it.
        if(kind MATCHES "^[WVuwv]$" AND bare MATCHES "(^|[ &*])(Q[A-Za-z]+|q[A-Z][A-Za-z]+|std|__gnu_cxx|M[bg][a-z][A-Z]\
[A-Za-z0-9]*|K[su][a-z][A-Z][A-Za-z0-9]*|operator[^a-zA-Z(]+|Kp[A-Za-z0-9]*)(::|<|$|\\()")
            continue()
        endif()
        # Names that linkers and sanitizers add.
        if(bare MATCHES "^(_init|_fini|_edata|_end|__bss_start|__odr_asan.*|__asan_.*|__ubsan_.*)$")
            continue()
        endif()
        list(APPEND strange "${name}")
    endforeach()
    set(${variable} "${strange}" PARENT_SCOPE)
endfunction()
