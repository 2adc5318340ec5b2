#pragma once

#include <QString>

#include <functional>
#include <vector>

// Trees for measuring, and what is measured by.

constexpr int kRuns = 7;

// All nodes in one level, or ten to a level.
void MakeTree(const QString& folder, int count, bool flat);

// Milliseconds.
double TimeOf(const std::function<void()>& function);
double Median(std::vector<double> times);
double MedianOf(const std::function<void()>& function);

// Reads each node's file and nothing more: no program can open a tree faster.
void Walk(const QString& folder);
