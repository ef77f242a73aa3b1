<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>orvel</name>
    <message>
        <source>The theme&apos;s &quot;%1&quot; has the wrong type.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The theme is not valid JSON: %1</source>
        <translation>主题不是有效的 JSON：%1</translation>
    </message>
    <message>
        <source>The theme is not a JSON object.</source>
        <translation>主题不是 JSON 对象。</translation>
    </message>
    <message>
        <source>Could not read %1: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>%1 is too large to be a theme.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; can&apos;t be the id of a theme.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>orvel::ConflictResolutionViewModel</name>
    <message>
        <source>Remove conflict markers before saving.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::Reader</name>
    <message>
        <source>The theme lacks &quot;%1&quot;.</source>
        <translation>主题缺少“%1”。</translation>
    </message>
</context>
<context>
    <name>orvel::RepositoryWindow</name>
    <message>
        <source>Orvel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No repository open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not open the repository:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 — Orvel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository: %1
Branch: %2
Head: %3
State: %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(detached)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(no commits yet)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ThemeEngine</name>
    <message>
        <source>Could not remove the theme %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no folder for application data.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not create the folder %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
