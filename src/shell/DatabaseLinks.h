// Where the main window and the arrangement database meet: the database's wishes reach the arrangement windows, and
// files that are open or just opened reach the database.
#pragma once

#include <functional>
#include <string>

/// Joins the database to the arrangement windows: what is found is shown there, and their button adds their file.
/// `beforeFind` runs before each find: a window of the last session that came back during one would take it up.
void joinDatabase(const std::function<void()>& beforeFind);

/// With the automatic update checked and a database in use: a file that was just opened is added. The path is full and
/// without extension.
void addOpenedToDatabase(const std::string& path);

/// The automatic update was just checked: each open arrangement file is added. Without a database the user is asked for
/// one, once.
void addOpenFilesToDatabase();
