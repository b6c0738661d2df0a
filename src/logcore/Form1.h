#pragma once
// Form1: the main logging window, the program's start and end.

#include <QMainWindow>

class Contexto;

class Form1 : public QMainWindow
{
    Q_OBJECT
public:
    explicit Form1(Contexto &contexto, QWidget *parent = nullptr);

private:
    Contexto &ctx;
};
