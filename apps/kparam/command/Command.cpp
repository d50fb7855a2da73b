#include <command/Command.h>

const std::vector<Command>& getCommands()
{
    static const std::vector<Command> commands = {
        {"kinds", "lists the kinds of parameter", runKinds},
        {"classes", "lists the classes of parameter that can be named", runClasses},
        {"describe", "shows the parameters of a class as built", runDescribe},
        {"template", "prints the stored form of a class as built", runTemplate},
        {"show", "shows a stored form", runShow},
        {"check", "reports what a class does not take over from a stored form", runCheck},
        {"migrate", "writes a stored form in the present version", runMigrate},
        {"set", "changes values of a stored form", runSet},
        {"store", "works on the forms in a store", runStore},
        {"demo", "builds, changes, stores and migrates a form, and checks each step", runDemo},
    };
    return commands;
}
