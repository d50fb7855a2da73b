#pragma once

/// What the modification records of named items say of an item: bits, to be combined. Those from 128 on have their
/// meaning in one model each. A record names the item under its identifier, and one that was renamed under its old and
/// its new one.
struct KsmReason
{
    enum : int
    {
        Created = 1,
        Removed = 2,
        Renamed = 4,
        Conditions = 8, ///< what filters look at: the applications that the item is for, the dimension of a scene
        Reloaded = 32,  ///< the content was read from the store again and is another one now
        BuiltIn = 64,   ///< a built-in item has come
        /// Those that can change a list of items, whatever the model.
        ListMask = Created | Removed | Renamed | Conditions | Reloaded | BuiltIn,

        // Catalogs.
        CategoryAdded = 128,
        CategoryRenamed = 256,
        CategoryRemoved = 512,
        CategoryColor = 1024,
        UndefinedColor = 2048,

        // Colour scales.
        Colors = 128,

        // Geostatistical sets.
        Documents = 128,

        // Neighbourhoods.
        Definition = 128,

        // Scenes.
        Content = 128,

        // Chart files. They name the folder or the view, and what it is in.
        Folders = 128, ///< a folder has come, gone or been renamed
        Views = 256,   ///< a view has come, gone or been renamed
    };
};
