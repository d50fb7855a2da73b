#include <study/KsbIDriverTaskFiche.h>

KsbIDriverTaskFiche::~KsbIDriverTaskFiche() = default;
