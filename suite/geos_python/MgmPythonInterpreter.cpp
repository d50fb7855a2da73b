#include <pybind11/embed.h>

#include <basic/MbeError.h>
#include <basic/MbeTranslate.h>
#include <geos_python/MgmPythonCondition.h>
#include <geos_python/MgmPythonInterpreter.h>

namespace py = pybind11;

namespace {

// The configuration of a Python that reads nothing but its own library.
class Configuration
{
public:
    Configuration()
    {
        PyConfig_InitIsolatedConfig(&_config);
        _config.site_import = 0;
        _config.write_bytecode = 0;
        _config.pathconfig_warnings = 0;
        _config.module_search_paths_set = 1;
    }
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration() { PyConfig_Clear(&_config); }

    // Everything that Python would otherwise look for along the PATH of the user.
    void setPaths()
    {
        const QString home = QStringLiteral(KESTRIN_PYTHON_HOME);
        const QString library = QStringLiteral(KESTRIN_PYTHON_LIBRARY);
        _set(&_config.home, home);
        _set(&_config.program_name, home + QStringLiteral("/bin/python3"));
        _set(&_config.executable, home + QStringLiteral("/bin/python3"));
        for (const QString& folder : {library, library + QStringLiteral("/lib-dynload")})
            _check(PyWideStringList_Append(&_config.module_search_paths, folder.toStdWString().c_str()));
    }

    void start() { _check(Py_InitializeFromConfig(&_config)); }

private:
    void _set(wchar_t** field, const QString& text)
    {
        _check(PyConfig_SetString(&_config, field, text.toStdWString().c_str()));
    }

    static void _check(const PyStatus& status)
    {
        if (PyStatus_Exception(status)) {
            throw MbeError(MbeError::Unknown,
                           QStringLiteral("Python cannot be started: %1").arg(QString::fromUtf8(status.err_msg)));
        }
    }

    PyConfig _config = {};
};

void start()
{
    PyPreConfig preConfig;
    PyPreConfig_InitIsolatedConfig(&preConfig);
    preConfig.utf8_mode = 1;
    // Not Python's own allocator: tools that watch the memory of a process see into the pages of this one.
    preConfig.allocator = PYMEM_ALLOCATOR_MALLOC;
    const PyStatus status = Py_PreInitialize(&preConfig);
    if (PyStatus_Exception(status))
        throw MbeError(MbeError::Unknown, QStringLiteral("Python cannot be started."));
    Configuration configuration;
    configuration.setPaths();
    configuration.start();
    // The thread that starts Python does not keep it: each evaluation takes the lock for itself.
    PyEval_SaveThread();
}

} // namespace

MgmPythonInterpreter* MgmPythonInterpreter::getInstance()
{
    static MgmPythonInterpreter* const instance = [] {
        return mbeTranslate([] {
            if (!Py_IsInitialized())
                start();
            const py::gil_scoped_acquire lock;
            MgmPythonCondition::prepare();
            return new MgmPythonInterpreter;
        });
    }();
    return instance;
}

bool MgmPythonInterpreter::evaluateCondition(const MgmPythonDict& variables, const QString& condition)
{
    return mbeTranslate([&] {
        const py::gil_scoped_acquire lock;
        return MgmPythonCondition::evaluate(variables, condition);
    });
}
