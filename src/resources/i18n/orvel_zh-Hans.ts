<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>orvel</name>
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
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The theme&apos;s &quot;%1&quot; has the wrong type.</source>
        <translation>主题的“%1”类型不正确。</translation>
    </message>
    <message>
        <source>%1 is too large to be a theme.</source>
        <translation>%1 太大，不可能是主题。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can&apos;t be the id of a theme.</source>
        <translation>“%1”不能用作主题的 ID。</translation>
    </message>
    <message>
        <source>Amend and Push</source>
        <translation>修补并推送</translation>
    </message>
    <message>
        <source>Amend Previous Commit</source>
        <translation>修补上一次提交</translation>
    </message>
    <message>
        <source>Commit and Push</source>
        <translation>提交并推送</translation>
    </message>
    <message>
        <source>Commit</source>
        <translation>提交</translation>
    </message>
    <message>
        <source>Delete File</source>
        <translation>删除文件</translation>
    </message>
    <message>
        <source>Are you sure you want to delete &quot;%1&quot;? This cannot be undone.</source>
        <translation>确定要删除“%1”吗？此操作无法撤销。</translation>
    </message>
    <message>
        <source>Are you sure you want to delete &quot;%1&quot;?</source>
        <translation>确定要删除“%1”吗？</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Discard Untracked File</source>
        <translation>丢弃未跟踪的文件</translation>
    </message>
    <message>
        <source>This file is untracked.</source>
        <translation>此文件未被跟踪。</translation>
    </message>
    <message>
        <source>This file is untracked. It cannot be restored by git.</source>
        <translation>此文件未被跟踪，git 无法恢复它。</translation>
    </message>
    <message>
        <source>Choose how to discard it:</source>
        <translation>请选择丢弃方式：</translation>
    </message>
    <message>
        <source>Stash File</source>
        <translation>储藏文件</translation>
    </message>
    <message>
        <source>Discard Changes</source>
        <translation>丢弃更改</translation>
    </message>
    <message>
        <source>Are you sure you want to discard all changes to &quot;%1&quot;? This cannot be undone.</source>
        <translation>确定要丢弃“%1”的所有更改吗？此操作无法撤销。</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>Unstage Selected (%1)</source>
        <translation>取消暂存所选（%1）</translation>
    </message>
    <message>
        <source>Stage Selected (%1)</source>
        <translation>暂存所选（%1）</translation>
    </message>
    <message>
        <source>Unstage</source>
        <translation>取消暂存</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>暂存</translation>
    </message>
    <message>
        <source>Accept Theirs (Incoming)</source>
        <translation>接受对方（传入）</translation>
    </message>
    <message>
        <source>Accept Ours (Current)</source>
        <translation>接受我方（当前）</translation>
    </message>
    <message>
        <source>Stash This File</source>
        <translation>储藏此文件</translation>
    </message>
    <message>
        <source>Add to .gitignore</source>
        <translation>添加到 .gitignore</translation>
    </message>
    <message>
        <source>Blame This File</source>
        <translation>追溯此文件</translation>
    </message>
    <message>
        <source>File History</source>
        <translation>文件历史</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>在文件管理器中显示</translation>
    </message>
    <message>
        <source>Don&apos;t change</source>
        <translation>不更改</translation>
    </message>
    <message>
        <source>Stash and reapply</source>
        <translation>储藏并重新应用</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>binary</source>
        <translation>二进制</translation>
    </message>
    <message>
        <source>Merging: resolve conflicts and commit</source>
        <translation>正在合并：请解决冲突并提交</translation>
    </message>
    <message>
        <source>Abort Merge</source>
        <translation>中止合并</translation>
    </message>
    <message>
        <source>Rebasing: resolve conflicts and continue</source>
        <translation>正在变基：请解决冲突并继续</translation>
    </message>
    <message>
        <source>Abort Rebase</source>
        <translation>中止变基</translation>
    </message>
    <message>
        <source>Cherry-picking: resolve conflicts and commit</source>
        <translation>正在拣选：请解决冲突并提交</translation>
    </message>
    <message>
        <source>Abort Cherry-pick</source>
        <translation>中止拣选</translation>
    </message>
    <message>
        <source>Reverting: resolve conflicts and commit</source>
        <translation>正在还原：请解决冲突并提交</translation>
    </message>
    <message>
        <source>Abort Revert</source>
        <translation>中止还原</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Merge aborted</source>
        <translation>已中止合并</translation>
    </message>
    <message>
        <source>Abort merge failed: %1</source>
        <translation>中止合并失败：%1</translation>
    </message>
    <message>
        <source>Rebase aborted</source>
        <translation>已中止变基</translation>
    </message>
    <message>
        <source>Abort rebase failed: %1</source>
        <translation>中止变基失败：%1</translation>
    </message>
    <message>
        <source>Cherry-pick aborted</source>
        <translation>已中止拣选</translation>
    </message>
    <message>
        <source>Abort cherry-pick failed: %1</source>
        <translation>中止拣选失败：%1</translation>
    </message>
    <message>
        <source>Revert aborted</source>
        <translation>已中止还原</translation>
    </message>
    <message>
        <source>Abort revert failed: %1</source>
        <translation>中止还原失败：%1</translation>
    </message>
    <message>
        <source>Search Git History</source>
        <translation>搜索 Git 历史</translation>
    </message>
    <message>
        <source>Fetch</source>
        <translation>抓取</translation>
    </message>
    <message>
        <source>Pull</source>
        <translation>拉取</translation>
    </message>
    <message>
        <source>Push</source>
        <translation>推送</translation>
    </message>
    <message>
        <source>New Branch</source>
        <translation>新建分支</translation>
    </message>
    <message>
        <source>New Tag</source>
        <translation>新建标签</translation>
    </message>
    <message>
        <source>Stash Changes</source>
        <translation>储藏更改</translation>
    </message>
    <message>
        <source>Open Repository</source>
        <translation>打开仓库</translation>
    </message>
    <message>
        <source>LOCAL</source>
        <translation>本地</translation>
    </message>
    <message>
        <source>REMOTE</source>
        <translation>远程</translation>
    </message>
    <message>
        <source>TAGS</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>STASHES</source>
        <translation>储藏</translation>
    </message>
    <message>
        <source>Cannot checkout: you have uncommitted changes. Commit or stash them first.</source>
        <translation>无法检出：存在未提交的更改。请先提交或储藏它们。</translation>
    </message>
    <message>
        <source>%1 is a nested repository; Orvel does not delete it</source>
        <translation>%1 是嵌套的仓库，Orvel 不会删除它</translation>
    </message>
    <message>
        <source>submodule</source>
        <translation>子模块</translation>
    </message>
    <message>
        <source>repository</source>
        <translation>仓库</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>提交信息</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>作者</translation>
    </message>
    <message>
        <source>Branch / Tag</source>
        <translation>分支 / 标签</translation>
    </message>
    <message>
        <source>Hash</source>
        <translation>哈希</translation>
    </message>
    <message>
        <source>Code Changes</source>
        <translation>代码更改</translation>
    </message>
    <message>
        <source>File Path</source>
        <translation>文件路径</translation>
    </message>
    <message>
        <source>Already up to date with &apos;%1&apos;</source>
        <translation>已与“%1”同步，无需更新</translation>
    </message>
    <message>
        <source>Merged &apos;%1&apos;</source>
        <translation>已合并“%1”</translation>
    </message>
    <message>
        <source>Fast-forwarded to &apos;%1&apos;</source>
        <translation>已快进到“%1”</translation>
    </message>
    <message>
        <source>Already up to date</source>
        <translation>已是最新</translation>
    </message>
    <message>
        <source>Merge conflict in %1 file(s)</source>
        <translation>合并在 %1 个文件中产生冲突</translation>
    </message>
    <message>
        <source>Fast-forward merged &apos;%1&apos;</source>
        <translation>已快进合并“%1”</translation>
    </message>
    <message>
        <source>Pull conflict in %1 file(s)</source>
        <translation>拉取在 %1 个文件中产生冲突</translation>
    </message>
    <message>
        <source>Pulled &apos;%1&apos;</source>
        <translation>已拉取“%1”</translation>
    </message>
    <message>
        <source>Pulled &apos;%1&apos; (fast-forward)</source>
        <translation>已拉取“%1”（快进）</translation>
    </message>
    <message>
        <source>Failed to check status: %1</source>
        <translation>检查状态失败：%1</translation>
    </message>
    <message>
        <source>// WIP</source>
        <translation>// 进行中</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>关闭标签页</translation>
    </message>
    <message>
        <source>Checking for conflicts…</source>
        <translation>正在检查冲突…</translation>
    </message>
    <message>
        <source>No conflict preview: %1</source>
        <translation>无法预览冲突：%1</translation>
    </message>
    <message>
        <source>Will stop on a conflict in %1 file(s): %2</source>
        <translation>将在 %1 个文件中因冲突而停止：%2</translation>
    </message>
    <message>
        <source>No step will stop on a conflict.</source>
        <translation>没有步骤会因冲突而停止。</translation>
    </message>
    <message>
        <source>%1 step(s) will stop on a conflict.</source>
        <translation>%1 个步骤会因冲突而停止。</translation>
    </message>
    <message>
        <source>Reverting %1 will be clean.</source>
        <translation>还原 %1 不会产生冲突。</translation>
    </message>
    <message>
        <source>Cherry-picking %1 will be clean.</source>
        <translation>拣选 %1 不会产生冲突。</translation>
    </message>
    <message>
        <source>Reverting %1 will conflict in %2 file(s): %3</source>
        <translation>还原 %1 将在 %2 个文件中产生冲突：%3</translation>
    </message>
    <message>
        <source>Cherry-picking %1 will conflict in %2 file(s): %3</source>
        <translation>拣选 %1 将在 %2 个文件中产生冲突：%3</translation>
    </message>
    <message>
        <source>Merge &apos;%1&apos;?</source>
        <translation>合并“%1”？</translation>
    </message>
    <message>
        <source>Merging &apos;%1&apos; into &apos;%2&apos; will be clean.</source>
        <translation>将“%1”合并到“%2”不会产生冲突。</translation>
    </message>
    <message>
        <source>Merging &apos;%1&apos; into &apos;%2&apos; will conflict in %3 file(s): %4</source>
        <translation>将“%1”合并到“%2”将在 %3 个文件中产生冲突：%4</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>合并</translation>
    </message>
</context>
<context>
    <name>orvel::AppViewModel</name>
    <message>
        <source>Failed to open repository: %1</source>
        <translation>打开仓库失败：%1</translation>
    </message>
    <message>
        <source>Removed invalid repos: %1</source>
        <translation>已移除无效的仓库：%1</translation>
    </message>
</context>
<context>
    <name>orvel::AppearanceSettingsTab</name>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Theme Files</source>
        <translation>主题文件</translation>
    </message>
    <message>
        <source>No custom themes installed.</source>
        <translation>尚未安装自定义主题。</translation>
    </message>
    <message>
        <source>Import Theme</source>
        <translation>导入主题</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Interface font</source>
        <translation>界面字体</translation>
    </message>
    <message>
        <source>Monospaced font</source>
        <translation>等宽字体</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>字号</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>系统默认</translation>
    </message>
    <message>
        <source>%1 (built-in)</source>
        <translation>%1（内置）</translation>
    </message>
    <message>
        <source>Remove theme %1</source>
        <translation>移除主题 %1</translation>
    </message>
    <message>
        <source>Theme files (*.json)</source>
        <translation>主题文件 (*.json)</translation>
    </message>
    <message>
        <source>Remove the theme &quot;%1&quot;?</source>
        <translation>移除主题“%1”？</translation>
    </message>
    <message>
        <source>Its file is deleted from the themes folder. This can&apos;t be undone.</source>
        <translation>它的文件将从主题文件夹中删除。此操作无法撤销。</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
</context>
<context>
    <name>orvel::AutoFetchScheduler</name>
    <message>
        <source>Auto-fetch resumed.</source>
        <translation>自动抓取已恢复。</translation>
    </message>
    <message>
        <source>Auto-fetch paused after 3 failures. A successful manual fetch will resume it.</source>
        <translation>自动抓取连续失败 3 次，已暂停。手动抓取成功后将恢复。</translation>
    </message>
</context>
<context>
    <name>orvel::BlameSheet</name>
    <message>
        <source>Commit</source>
        <translation>提交</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>作者</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>Blame: %1</source>
        <translation>追溯：%1</translation>
    </message>
    <message>
        <source>No blame data available</source>
        <translation>没有可用的追溯数据</translation>
    </message>
</context>
<context>
    <name>orvel::BranchNameValidator</name>
    <message>
        <source>Must be 255 characters or fewer</source>
        <translation>不能超过 255 个字符</translation>
    </message>
    <message>
        <source>Cannot end with &apos;.&apos;</source>
        <translation>不能以“.”结尾</translation>
    </message>
    <message>
        <source>Cannot end with &apos;/&apos;</source>
        <translation>不能以“/”结尾</translation>
    </message>
    <message>
        <source>Cannot end with &apos;.lock&apos;</source>
        <translation>不能以“.lock”结尾</translation>
    </message>
    <message>
        <source>Cannot contain &apos;..&apos;</source>
        <translation>不能包含“..”</translation>
    </message>
    <message>
        <source>Cannot contain &apos;//&apos;</source>
        <translation>不能包含“//”</translation>
    </message>
    <message>
        <source>Cannot contain &apos;@{&apos;</source>
        <translation>不能包含“@{”</translation>
    </message>
    <message>
        <source>&apos;@&apos; alone is not valid</source>
        <translation>单独的“@”无效</translation>
    </message>
    <message>
        <source>Path components cannot start with &apos;.&apos;</source>
        <translation>路径的各部分不能以“.”开头</translation>
    </message>
    <message>
        <source>Cannot be empty</source>
        <translation>不能为空</translation>
    </message>
    <message>
        <source>Cannot start with &apos;-&apos;</source>
        <translation>不能以“-”开头</translation>
    </message>
    <message>
        <source>Cannot start with &apos;.&apos;</source>
        <translation>不能以“.”开头</translation>
    </message>
    <message>
        <source>Cannot contain spaces</source>
        <translation>不能包含空格</translation>
    </message>
    <message>
        <source>Cannot contain control characters</source>
        <translation>不能包含控制字符</translation>
    </message>
    <message>
        <source>Cannot contain &apos;%1&apos;</source>
        <translation>不能包含“%1”</translation>
    </message>
</context>
<context>
    <name>orvel::ChangesFileSection</name>
    <message>
        <source>Staged (%1)</source>
        <translation>已暂存（%1）</translation>
    </message>
    <message>
        <source>Unstaged (%1)</source>
        <translation>未暂存（%1）</translation>
    </message>
    <message>
        <source>Unstage Selected (%1)</source>
        <translation>取消暂存所选（%1）</translation>
    </message>
    <message>
        <source>Unstage All</source>
        <translation>全部取消暂存</translation>
    </message>
    <message>
        <source>Stage Selected (%1)</source>
        <translation>暂存所选（%1）</translation>
    </message>
    <message>
        <source>Stage All</source>
        <translation>全部暂存</translation>
    </message>
    <message>
        <source>Staged files</source>
        <translation>已暂存的文件</translation>
    </message>
    <message>
        <source>Unstaged files</source>
        <translation>未暂存的文件</translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPage</name>
    <message>
        <source>No File Selected</source>
        <translation>未选择文件</translation>
    </message>
    <message>
        <source>Select a file to see its changes.</source>
        <translation>选择一个文件以查看其更改。</translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPaneCommit</name>
    <message>
        <source>Push is disabled during merge/rebase/cherry-pick</source>
        <translation>合并、变基或拣选期间无法推送</translation>
    </message>
    <message>
        <source>%1 of %2 characters</source>
        <translation>%1 / %2 个字符</translation>
    </message>
    <message>
        <source>Force Push Required</source>
        <translation>需要强制推送</translation>
    </message>
    <message>
        <source>The commit you&apos;re amending was already pushed. Pushing will require a force push, which can discard a colleague&apos;s work. Continue?</source>
        <translation>要修补的提交已经推送过。推送将需要强制推送，这可能会丢弃同事的工作。是否继续？</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Commit subject</source>
        <translation>提交标题</translation>
    </message>
    <message>
        <source>Description (optional)</source>
        <translation>描述（可选）</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>描述</translation>
    </message>
    <message>
        <source>Amend</source>
        <translation>修补</translation>
    </message>
    <message>
        <source>Commit and Push</source>
        <translation>提交并推送</translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPaneHeader</name>
    <message>
        <source>Discard All Changes</source>
        <translation>丢弃所有更改</translation>
    </message>
    <message>
        <source>Are you sure you want to discard all changes? This cannot be undone.</source>
        <translation>确定要丢弃所有更改吗？此操作无法撤销。</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>Filter changes...</source>
        <translation>筛选更改...</translation>
    </message>
    <message>
        <source>Filter changes</source>
        <translation>筛选更改</translation>
    </message>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Show as list</source>
        <translation>以列表显示</translation>
    </message>
    <message>
        <source>Tree</source>
        <translation>树</translation>
    </message>
    <message>
        <source>Show as tree</source>
        <translation>以树显示</translation>
    </message>
    <message>
        <source>Discard All</source>
        <translation>全部丢弃</translation>
    </message>
    <message>
        <source>Discarding all changes…</source>
        <translation>正在丢弃所有更改…</translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPaneViewModel</name>
    <message>
        <source>Could not save your name and e-mail: %1</source>
        <translation>无法保存您的姓名和电子邮箱：%1</translation>
    </message>
    <message>
        <source>Could not copy to clipboard</source>
        <translation>无法复制到剪贴板</translation>
    </message>
    <message>
        <source>Could not reveal file in File Manager</source>
        <translation>无法在文件管理器中显示文件</translation>
    </message>
    <message>
        <source>Failed to delete file: %1</source>
        <translation>删除文件失败：%1</translation>
    </message>
    <message>
        <source>Failed to update .gitignore</source>
        <translation>更新 .gitignore 失败</translation>
    </message>
    <message>
        <source>Failed to discard %1 file(s)</source>
        <translation>丢弃 %1 个文件失败</translation>
    </message>
    <message>
        <source>No staged files to commit</source>
        <translation>没有要提交的已暂存文件</translation>
    </message>
    <message>
        <source>Amending commit…</source>
        <translation>正在修补提交…</translation>
    </message>
    <message>
        <source>Committing…</source>
        <translation>正在提交…</translation>
    </message>
    <message>
        <source>Commit failed: %1</source>
        <translation>提交失败：%1</translation>
    </message>
    <message>
        <source>Committed successfully</source>
        <translation>提交成功</translation>
    </message>
    <message>
        <source>Pushing…</source>
        <translation>正在推送…</translation>
    </message>
    <message>
        <source>Push failed; your commit was saved locally: %1</source>
        <translation>推送失败，你的提交已保存在本地：%1</translation>
    </message>
    <message>
        <source>Committed and pushed</source>
        <translation>已提交并推送</translation>
    </message>
    <message>
        <source>Amend-push cancelled; your amended commit is saved locally and requires a force push to publish</source>
        <translation>已取消修补后推送；修补后的提交已保存在本地，需要强制推送才能发布</translation>
    </message>
    <message>
        <source>Stage failed: %1</source>
        <translation>暂存失败：%1</translation>
    </message>
    <message>
        <source>Unstage failed: %1</source>
        <translation>取消暂存失败：%1</translation>
    </message>
    <message>
        <source>Stage all failed: %1</source>
        <translation>全部暂存失败：%1</translation>
    </message>
    <message>
        <source>Unstage all failed: %1</source>
        <translation>全部取消暂存失败：%1</translation>
    </message>
    <message>
        <source>Discard failed: %1</source>
        <translation>丢弃失败：%1</translation>
    </message>
    <message>
        <source>Stash failed: %1</source>
        <translation>储藏失败：%1</translation>
    </message>
    <message>
        <source>Resolve conflict failed: %1</source>
        <translation>解决冲突失败：%1</translation>
    </message>
</context>
<context>
    <name>orvel::CloneSheet</name>
    <message>
        <source>Choose Clone Destination</source>
        <translation>选择克隆目标位置</translation>
    </message>
    <message>
        <source>Clone Repository</source>
        <translation>克隆仓库</translation>
    </message>
    <message>
        <source>Clone a remote repository to your machine</source>
        <translation>将远程仓库克隆到本机</translation>
    </message>
    <message>
        <source>Repository URL:</source>
        <translation>仓库 URL：</translation>
    </message>
    <message>
        <source>Repository URL</source>
        <translation>仓库 URL</translation>
    </message>
    <message>
        <source>Destination:</source>
        <translation>目标位置：</translation>
    </message>
    <message>
        <source>Destination</source>
        <translation>目标位置</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Browse for destination folder</source>
        <translation>浏览目标文件夹</translation>
    </message>
    <message>
        <source>Cloning…</source>
        <translation>正在克隆…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel clone</source>
        <translation>取消克隆</translation>
    </message>
    <message>
        <source>Clone</source>
        <translation>克隆</translation>
    </message>
    <message>
        <source>Clone repository</source>
        <translation>克隆仓库</translation>
    </message>
    <message>
        <source>Empty Repository</source>
        <translation>空仓库</translation>
    </message>
    <message>
        <source>This repository is empty. Orvel will create a %1 file, commit with &quot;%2&quot;, and push to the remote. You can change these in Settings → General.</source>
        <translation>此仓库为空。Orvel 将创建 %1 文件，以“%2”提交，并推送到远程。你可以在“设置 → 通用”中更改这些内容。</translation>
    </message>
    <message>
        <source>Initialize &amp; Push</source>
        <translation>初始化并推送</translation>
    </message>
</context>
<context>
    <name>orvel::CloneViewModel</name>
    <message>
        <source>Choose a full path for the destination, such as ~/Projects/name.</source>
        <translation>请为目标位置选择完整路径，例如 ~/Projects/name。</translation>
    </message>
</context>
<context>
    <name>orvel::CommitIdentityOffer</name>
    <message>
        <source>Git needs your name and e-mail before it can commit.</source>
        <translation>Git 需要您的姓名和电子邮箱才能提交。</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>姓名</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>电子邮箱</translation>
    </message>
    <message>
        <source>For all repositories</source>
        <translation>用于所有仓库</translation>
    </message>
    <message>
        <source>For this repository only</source>
        <translation>仅用于此仓库</translation>
    </message>
    <message>
        <source>Save and Commit</source>
        <translation>保存并提交</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>暂不</translation>
    </message>
</context>
<context>
    <name>orvel::ConflictBanner</name>
    <message>
        <source>Open the merge editor on the selected conflicted file</source>
        <translation>在所选的冲突文件上打开合并编辑器</translation>
    </message>
    <message>
        <source>Open Merge Editor</source>
        <translation>打开合并编辑器</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>跳过</translation>
    </message>
    <message>
        <source>Skip this commit of the rebase</source>
        <translation>跳过变基中的此提交</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Continue the rebase</source>
        <translation>继续变基</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>This will discard all conflict resolutions and return to the previous state. This cannot be undone.</source>
        <translation>这将丢弃所有冲突解决结果并回到之前的状态。此操作无法撤销。</translation>
    </message>
</context>
<context>
    <name>orvel::ConflictBannerViewModel</name>
    <message>
        <source>Conflict at step %1/%2 in %3 file(s)</source>
        <translation>第 %1/%2 步有冲突，涉及 %3 个文件</translation>
    </message>
    <message>
        <source>Rebase paused; amend and continue</source>
        <translation>变基已暂停；请修补后继续</translation>
    </message>
    <message>
        <source>Paused at step %1/%2; amend and continue</source>
        <translation>已在第 %1/%2 步暂停；请修补后继续</translation>
    </message>
    <message>
        <source>Rebase completed</source>
        <translation>变基完成</translation>
    </message>
    <message>
        <source>Skip failed: %1</source>
        <translation>跳过失败：%1</translation>
    </message>
    <message>
        <source>Continue failed: %1</source>
        <translation>继续失败：%1</translation>
    </message>
</context>
<context>
    <name>orvel::ConflictResolutionView</name>
    <message>
        <source>A: Ours (%1)</source>
        <translation>A：我方（%1）</translation>
    </message>
    <message>
        <source>B: Theirs (%1)</source>
        <translation>B：对方（%1）</translation>
    </message>
    <message>
        <source>Merge Editor</source>
        <translation>合并编辑器</translation>
    </message>
    <message>
        <source>Resolve %1</source>
        <translation>解决 %1</translation>
    </message>
    <message>
        <source>&lt; Prev</source>
        <translation>&lt; 上一个</translation>
    </message>
    <message>
        <source>Previous conflict</source>
        <translation>上一个冲突</translation>
    </message>
    <message>
        <source>Next &gt;</source>
        <translation>下一个 &gt;</translation>
    </message>
    <message>
        <source>Next conflict</source>
        <translation>下一个冲突</translation>
    </message>
    <message>
        <source>Take All Ours</source>
        <translation>全部采用我方</translation>
    </message>
    <message>
        <source>Take ours in every conflict</source>
        <translation>在每个冲突中采用我方</translation>
    </message>
    <message>
        <source>Take All Theirs</source>
        <translation>全部采用对方</translation>
    </message>
    <message>
        <source>Take theirs in every conflict</source>
        <translation>在每个冲突中采用对方</translation>
    </message>
    <message>
        <source>Open in Text Editor</source>
        <translation>在文本编辑器中打开</translation>
    </message>
    <message>
        <source>Edit the whole file as text</source>
        <translation>以文本方式编辑整个文件</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Read the conflict again</source>
        <translation>重新读取冲突</translation>
    </message>
    <message>
        <source>A only</source>
        <translation>仅 A</translation>
    </message>
    <message>
        <source>Keep only side A of this conflict</source>
        <translation>此冲突只保留 A 方</translation>
    </message>
    <message>
        <source>B only</source>
        <translation>仅 B</translation>
    </message>
    <message>
        <source>Keep only side B of this conflict</source>
        <translation>此冲突只保留 B 方</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>两者</translation>
    </message>
    <message>
        <source>Keep side A, then side B</source>
        <translation>先保留 A 方，再保留 B 方</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Keep no line of this conflict</source>
        <translation>此冲突不保留任何行</translation>
    </message>
    <message>
        <source>A: Ours</source>
        <translation>A：我方</translation>
    </message>
    <message>
        <source>Lines of side A (ours)</source>
        <translation>A 方（我方）的行</translation>
    </message>
    <message>
        <source>B: Theirs</source>
        <translation>B：对方</translation>
    </message>
    <message>
        <source>Lines of side B (theirs)</source>
        <translation>B 方（对方）的行</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>The resolved file</source>
        <translation>解决后的文件</translation>
    </message>
    <message>
        <source>File text</source>
        <translation>文件文本</translation>
    </message>
    <message>
        <source>Try saving again</source>
        <translation>再次尝试保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Close the merge editor without saving</source>
        <translation>不保存并关闭合并编辑器</translation>
    </message>
    <message>
        <source>Save &amp; Stage</source>
        <translation>保存并暂存</translation>
    </message>
    <message>
        <source>Save the resolution and stage the file</source>
        <translation>保存解决结果并暂存该文件</translation>
    </message>
    <message>
        <source>Conflict position</source>
        <translation>冲突位置</translation>
    </message>
    <message>
        <source>Loading conflict…</source>
        <translation>正在加载冲突…</translation>
    </message>
    <message>
        <source>Conflict %1 of %2</source>
        <translation>第 %1 个冲突，共 %2 个</translation>
    </message>
</context>
<context>
    <name>orvel::ConflictResolutionViewModel</name>
    <message>
        <source>Remove conflict markers before saving.</source>
        <translation>保存前请删除冲突标记。</translation>
    </message>
</context>
<context>
    <name>orvel::CreateBranchSheet</name>
    <message>
        <source>Create Branch</source>
        <translation>创建分支</translation>
    </message>
    <message>
        <source>Create new branch</source>
        <translation>创建新分支</translation>
    </message>
    <message>
        <source>Create branch at:</source>
        <translation>创建分支于：</translation>
    </message>
    <message>
        <source>Branch name:</source>
        <translation>分支名称：</translation>
    </message>
    <message>
        <source>Branch name</source>
        <translation>分支名称</translation>
    </message>
    <message>
        <source>Check out after create</source>
        <translation>创建后检出</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel creating branch</source>
        <translation>取消创建分支</translation>
    </message>
    <message>
        <source>Advanced Settings</source>
        <translation>高级设置</translation>
    </message>
    <message>
        <source>Local changes:</source>
        <translation>本地更改：</translation>
    </message>
    <message>
        <source>Create and Checkout</source>
        <translation>创建并检出</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>创建</translation>
    </message>
    <message>
        <source>Create branch and check it out</source>
        <translation>创建分支并检出</translation>
    </message>
    <message>
        <source>Create branch</source>
        <translation>创建分支</translation>
    </message>
</context>
<context>
    <name>orvel::CreateBranchViewModel</name>
    <message>
        <source>Create branch failed: %1</source>
        <translation>创建分支失败：%1</translation>
    </message>
</context>
<context>
    <name>orvel::CreateTagSheet</name>
    <message>
        <source>Create Tag</source>
        <translation>创建标签</translation>
    </message>
    <message>
        <source>Tag name:</source>
        <translation>标签名称：</translation>
    </message>
    <message>
        <source>Tag name</source>
        <translation>标签名称</translation>
    </message>
    <message>
        <source>Tag message (creates annotated tag):</source>
        <translation>标签信息（将创建附注标签）：</translation>
    </message>
    <message>
        <source>Tag message</source>
        <translation>标签信息</translation>
    </message>
    <message>
        <source>Tag at:</source>
        <translation>标签位于：</translation>
    </message>
    <message>
        <source>Advanced Options</source>
        <translation>高级选项</translation>
    </message>
    <message>
        <source>Commit:</source>
        <translation>提交：</translation>
    </message>
    <message>
        <source>Loading commits...</source>
        <translation>正在加载提交...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel creating tag</source>
        <translation>取消创建标签</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>创建</translation>
    </message>
    <message>
        <source>Create tag</source>
        <translation>创建标签</translation>
    </message>
</context>
<context>
    <name>orvel::CreateTagViewModel</name>
    <message>
        <source>Create tag failed: %1</source>
        <translation>创建标签失败：%1</translation>
    </message>
    <message>
        <source>Invalid tag name: %1</source>
        <translation>无效的标签名称：%1</translation>
    </message>
</context>
<context>
    <name>orvel::CredentialDialog</name>
    <message>
        <source>Enter password</source>
        <translation>输入密码</translation>
    </message>
    <message>
        <source>Enter value</source>
        <translation>输入内容</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Hide password</source>
        <translation>隐藏密码</translation>
    </message>
    <message>
        <source>Reveal password</source>
        <translation>显示密码</translation>
    </message>
    <message>
        <source>Git Credential Request</source>
        <translation>Git 凭据请求</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Credential input field</source>
        <translation>凭据输入框</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel credential request</source>
        <translation>取消凭据请求</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>提交</translation>
    </message>
    <message>
        <source>Submit credential</source>
        <translation>提交凭据</translation>
    </message>
</context>
<context>
    <name>orvel::DiffDetailViewModel</name>
    <message>
        <source>The diff changed after the hunk was chosen, so nothing was done. It has been read again: choose the hunk once more.</source>
        <translation>选择该区块后差异已经变化，因此没有执行任何操作。差异已重新读取：请再次选择该区块。</translation>
    </message>
    <message>
        <source>The diff changed after the lines were chosen, so nothing was done. It has been read again: choose the lines once more.</source>
        <translation>选择这些行后差异已经变化，因此没有执行任何操作。差异已重新读取：请再次选择这些行。</translation>
    </message>
</context>
<context>
    <name>orvel::DiffPane</name>
    <message>
        <source>Open Merge Editor</source>
        <translation>打开合并编辑器</translation>
    </message>
    <message>
        <source>Resolve this file&apos;s conflicts in the merge editor</source>
        <translation>在合并编辑器中解决此文件的冲突</translation>
    </message>
    <message>
        <source>Staged</source>
        <translation>已暂存</translation>
    </message>
    <message>
        <source>Unstaged</source>
        <translation>未暂存</translation>
    </message>
    <message>
        <source>Loading image…</source>
        <translation>正在加载图像…</translation>
    </message>
    <message>
        <source>Diff</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>并排</translation>
    </message>
    <message>
        <source>Side-by-side diff</source>
        <translation>并排差异</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Show changes only</source>
        <translation>只显示更改</translation>
    </message>
    <message>
        <source>Show full file</source>
        <translation>显示完整文件</translation>
    </message>
    <message>
        <source>Rendered</source>
        <translation>渲染</translation>
    </message>
    <message>
        <source>Show the Markdown rendered</source>
        <translation>显示渲染后的 Markdown</translation>
    </message>
    <message>
        <source>Close diff</source>
        <translation>关闭差异</translation>
    </message>
    <message>
        <source>No file selected</source>
        <translation>未选择文件</translation>
    </message>
    <message>
        <source>Select a file to see its changes.</source>
        <translation>选择一个文件以查看其更改。</translation>
    </message>
    <message>
        <source>No changes</source>
        <translation>没有更改</translation>
    </message>
    <message>
        <source>This file has no changes to show.</source>
        <translation>此文件没有可显示的更改。</translation>
    </message>
    <message>
        <source>Binary file</source>
        <translation>二进制文件</translation>
    </message>
    <message>
        <source>Binary files are not shown.</source>
        <translation>不显示二进制文件。</translation>
    </message>
    <message>
        <source>(binary or unreadable file)</source>
        <translation>（二进制或无法读取的文件）</translation>
    </message>
    <message>
        <source>Untracked folder</source>
        <translation>未跟踪的文件夹</translation>
    </message>
    <message>
        <source>(empty directory)</source>
        <translation>（空目录）</translation>
    </message>
    <message>
        <source>%1 item(s); not yet tracked by git.</source>
        <translation>%1 项，尚未被 git 跟踪。</translation>
    </message>
    <message>
        <source> lines</source>
        <translation> 行</translation>
    </message>
    <message>
        <source>File too large to display</source>
        <translation>文件太大，无法显示</translation>
    </message>
    <message>
        <source>Show Anyway</source>
        <translation>仍然显示</translation>
    </message>
    <message>
        <source>Load and display this large file</source>
        <translation>加载并显示此大文件</translation>
    </message>
    <message>
        <source>binary</source>
        <translation>二进制</translation>
    </message>
    <message>
        <source>Preview not supported</source>
        <translation>不支持预览</translation>
    </message>
    <message>
        <source>.%1 files cannot be displayed</source>
        <translation>无法显示 .%1 文件</translation>
    </message>
    <message>
        <source>Failed to load diff</source>
        <translation>加载差异失败</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Hunk Action Failed</source>
        <translation>区块操作失败</translation>
    </message>
    <message>
        <source>Discard Changes?</source>
        <translation>丢弃更改？</translation>
    </message>
    <message>
        <source>This hunk&apos;s changes will be permanently lost.</source>
        <translation>此区块的更改将永久丢失。</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Submodule %1: %2 → %3</source>
        <translation>子模块 %1：%2 → %3</translation>
    </message>
    <message>
        <source> (dirty)</source>
        <translation>（有改动）</translation>
    </message>
    <message>
        <source>The chosen lines&apos; changes will be permanently lost.</source>
        <translation>所选行的更改将永久丢失。</translation>
    </message>
</context>
<context>
    <name>orvel::DiffTextView</name>
    <message>
        <source>Side-by-side diff</source>
        <translation>并排差异</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Diff</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>Stage Hunk</source>
        <translation>暂存区块</translation>
    </message>
    <message>
        <source>Unstage Hunk</source>
        <translation>取消暂存区块</translation>
    </message>
    <message>
        <source>Discard Hunk</source>
        <translation>丢弃区块</translation>
    </message>
    <message>
        <source>Stage Lines</source>
        <translation>暂存所选行</translation>
    </message>
    <message>
        <source>Unstage Lines</source>
        <translation>取消暂存所选行</translation>
    </message>
    <message>
        <source>Discard Lines</source>
        <translation>丢弃所选行</translation>
    </message>
</context>
<context>
    <name>orvel::FileHistorySheet</name>
    <message>
        <source>Commit</source>
        <translation>提交</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>作者</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>History: %1</source>
        <translation>历史：%1</translation>
    </message>
    <message>
        <source>%1 commits</source>
        <translation>%1 个提交</translation>
    </message>
    <message>
        <source>No history found</source>
        <translation>未找到历史</translation>
    </message>
</context>
<context>
    <name>orvel::FileSheet</name>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>正在加载...</translation>
    </message>
</context>
<context>
    <name>orvel::FileSheetViewModel</name>
    <message>
        <source>Blame failed: </source>
        <translation>追溯失败：</translation>
    </message>
    <message>
        <source>History failed: </source>
        <translation>历史加载失败：</translation>
    </message>
</context>
<context>
    <name>orvel::FileTreeModel</name>
    <message>
        <source>%1, status %2</source>
        <translation>%1，状态 %2</translation>
    </message>
    <message>
        <source>Folder %1</source>
        <translation>文件夹 %1</translation>
    </message>
</context>
<context>
    <name>orvel::GitSettingsTab</name>
    <message>
        <source>Detecting...</source>
        <translation>正在检测…</translation>
    </message>
    <message>
        <source>Automatic (found on PATH)</source>
        <translation>自动（在 PATH 中查找）</translation>
    </message>
    <message>
        <source>Custom...</source>
        <translation>自定义…</translation>
    </message>
    <message>
        <source>Choose a git executable</source>
        <translation>选择 git 可执行文件</translation>
    </message>
    <message>
        <source>Git Instance</source>
        <translation>Git 程序</translation>
    </message>
    <message>
        <source>User Name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>User Email</source>
        <translation>用户邮箱</translation>
    </message>
    <message>
        <source>Default Branch</source>
        <translation>默认分支</translation>
    </message>
    <message>
        <source>SSH Command</source>
        <translation>SSH 命令</translation>
    </message>
    <message>
        <source>Global Excludes</source>
        <translation>全局忽略文件</translation>
    </message>
</context>
<context>
    <name>orvel::GitSettingsViewModel</name>
    <message>
        <source>Branch name must not contain spaces.</source>
        <translation>分支名称不能包含空格。</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a valid git executable.</source>
        <translation>“%1”不是有效的 git 可执行文件。</translation>
    </message>
</context>
<context>
    <name>orvel::GitToolbar</name>
    <message>
        <source>Pull &apos;%1&apos; by Merge?</source>
        <translation>以合并方式拉取“%1”？</translation>
    </message>
    <message>
        <source>&apos;%1&apos; and &apos;%2&apos; have diverged: the pull will merge what it fetches into &apos;%1&apos;.</source>
        <translation>“%1”与“%2”已分叉：拉取会把获取到的提交合并到“%1”。</translation>
    </message>
    <message>
        <source>The preview uses &apos;%1&apos; as last fetched.</source>
        <translation>预览基于上次获取时的“%1”。</translation>
    </message>
    <message>
        <source>Git Toolbar</source>
        <translation>Git 工具栏</translation>
    </message>
    <message>
        <source>Fetch</source>
        <translation>抓取</translation>
    </message>
    <message>
        <source>Pull</source>
        <translation>拉取</translation>
    </message>
    <message>
        <source>Push</source>
        <translation>推送</translation>
    </message>
    <message>
        <source>Branch</source>
        <translation>分支</translation>
    </message>
    <message>
        <source>New Tag</source>
        <translation>新建标签</translation>
    </message>
    <message>
        <source>Stash</source>
        <translation>储藏</translation>
    </message>
    <message>
        <source>Pull (Rebase)</source>
        <translation>拉取（变基）</translation>
    </message>
    <message>
        <source>Pull (FF Only)</source>
        <translation>拉取（仅快进）</translation>
    </message>
    <message>
        <source>Pull (Use Config)</source>
        <translation>拉取（使用配置）</translation>
    </message>
    <message>
        <source>Force Push...</source>
        <translation>强制推送...</translation>
    </message>
    <message>
        <source>Stash Changes…</source>
        <translation>储藏更改…</translation>
    </message>
    <message>
        <source>Pop Stash</source>
        <translation>弹出储藏</translation>
    </message>
    <message>
        <source>Push (%1 to send)</source>
        <translation>推送（%1 个待发送）</translation>
    </message>
    <message>
        <source>Pull (%1 to receive)</source>
        <translation>拉取（%1 个待接收）</translation>
    </message>
</context>
<context>
    <name>orvel::GraphConfirmation</name>
    <message>
        <source>Hard Reset</source>
        <translation>硬重置</translation>
    </message>
    <message>
        <source>Soft Reset</source>
        <translation>软重置</translation>
    </message>
    <message>
        <source>Mixed Reset</source>
        <translation>混合重置</translation>
    </message>
    <message>
        <source>Cherry-pick onto Dirty Working Tree</source>
        <translation>在有改动的工作区上拣选</translation>
    </message>
    <message>
        <source>Revert onto Dirty Working Tree</source>
        <translation>在有改动的工作区上还原</translation>
    </message>
    <message>
        <source>Cherry-pick Commit</source>
        <translation>拣选提交</translation>
    </message>
    <message>
        <source>Revert Commit</source>
        <translation>还原提交</translation>
    </message>
    <message>
        <source>Cherry-pick %1 onto the current branch?</source>
        <translation>将 %1 拣选到当前分支？</translation>
    </message>
    <message>
        <source>Revert %1 on the current branch?</source>
        <translation>在当前分支上还原 %1？</translation>
    </message>
    <message>
        <source>Reset to %1? This will move HEAD to that commit and discard any uncommitted changes plus any commits that are not reachable from another branch. This cannot be undone.</source>
        <translation>重置到 %1？这会将 HEAD 移到该提交，并丢弃所有未提交的更改以及无法从其他分支到达的提交。此操作无法撤销。</translation>
    </message>
    <message>
        <source>Soft reset to %1? HEAD will move to that commit and any commits in between will be squashed into staged changes. Uncommitted changes are preserved.</source>
        <translation>软重置到 %1？HEAD 将移到该提交，其间的所有提交将合并为已暂存的更改。未提交的更改会保留。</translation>
    </message>
    <message>
        <source>Mixed reset to %1? HEAD will move to that commit and any commits in between will be unstaged. Uncommitted changes are preserved.</source>
        <translation>混合重置到 %1？HEAD 将移到该提交，其间的所有提交将变为未暂存的更改。未提交的更改会保留。</translation>
    </message>
    <message>
        <source>Cherry-pick %1 onto a working tree with uncommitted changes? Conflicts are possible.</source>
        <translation>在有未提交更改的工作区上拣选 %1？可能会产生冲突。</translation>
    </message>
    <message>
        <source>Revert %1 onto a working tree with uncommitted changes? Conflicts are possible.</source>
        <translation>在有未提交更改的工作区上还原 %1？可能会产生冲突。</translation>
    </message>
    <message>
        <source>Cherry-pick</source>
        <translation>拣选</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>还原</translation>
    </message>
</context>
<context>
    <name>orvel::GraphPane</name>
    <message>
        <source>Go to Commit</source>
        <translation>转到提交</translation>
    </message>
    <message>
        <source>Go to Commit…</source>
        <translation>转到提交…</translation>
    </message>
    <message>
        <source>Hash, branch or tag:</source>
        <translation>哈希、分支或标签：</translation>
    </message>
    <message>
        <source>Copy Commit Hash</source>
        <translation>复制提交哈希</translation>
    </message>
    <message>
        <source>Copy Commit Message</source>
        <translation>复制提交信息</translation>
    </message>
    <message>
        <source>Search Git History…</source>
        <translation>搜索 Git 历史…</translation>
    </message>
    <message>
        <source>Create Branch from Here...</source>
        <translation>从此处创建分支...</translation>
    </message>
    <message>
        <source>Create Tag Here...</source>
        <translation>在此处创建标签...</translation>
    </message>
    <message>
        <source>Cherry-pick %1</source>
        <translation>拣选 %1</translation>
    </message>
    <message>
        <source>Revert %1</source>
        <translation>还原 %1</translation>
    </message>
    <message>
        <source>Reset to %1...</source>
        <translation>重置到 %1...</translation>
    </message>
    <message>
        <source>Soft: keep all changes staged</source>
        <translation>软：保留所有更改为已暂存</translation>
    </message>
    <message>
        <source>Mixed: keep changes unstaged</source>
        <translation>混合：保留更改为未暂存</translation>
    </message>
    <message>
        <source>Hard: discard all changes</source>
        <translation>硬：丢弃所有更改</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Commit graph</source>
        <translation>提交图</translation>
    </message>
</context>
<context>
    <name>orvel::GraphSearchBar</name>
    <message>
        <source>%1 match(es)</source>
        <translation>%1 个匹配</translation>
    </message>
    <message>
        <source>No commits match</source>
        <translation>没有匹配的提交</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Search commits...</source>
        <translation>搜索提交...</translation>
    </message>
    <message>
        <source>Search commits</source>
        <translation>搜索提交</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>范围</translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation>上一个匹配</translation>
    </message>
    <message>
        <source>Next match</source>
        <translation>下一个匹配</translation>
    </message>
    <message>
        <source>Close search</source>
        <translation>关闭搜索</translation>
    </message>
</context>
<context>
    <name>orvel::GraphTableModel</name>
    <message>
        <source>Graph</source>
        <translation>图</translation>
    </message>
    <message>
        <source>Branch / Tag</source>
        <translation>分支 / 标签</translation>
    </message>
    <message>
        <source>Commit Message</source>
        <translation>提交信息</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>作者</translation>
    </message>
    <message>
        <source>Hash</source>
        <translation>哈希</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
</context>
<context>
    <name>orvel::ImagePairView</name>
    <message>
        <source>Image</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>之前</translation>
    </message>
    <message>
        <source>After</source>
        <translation>之后</translation>
    </message>
    <message>
        <source>Failed to load image</source>
        <translation>加载图像失败</translation>
    </message>
</context>
<context>
    <name>orvel::InitSheet</name>
    <message>
        <source>Choose Directory</source>
        <translation>选择目录</translation>
    </message>
    <message>
        <source>Initialize Repository</source>
        <translation>初始化仓库</translation>
    </message>
    <message>
        <source>Create a new Git repository</source>
        <translation>创建新的 Git 仓库</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>目录：</translation>
    </message>
    <message>
        <source>Repository directory path</source>
        <translation>仓库目录路径</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Browse for directory</source>
        <translation>浏览目录</translation>
    </message>
    <message>
        <source>Initial branch name</source>
        <translation>初始分支名称</translation>
    </message>
    <message>
        <source>Uses git default</source>
        <translation>使用 git 默认值</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel initialize</source>
        <translation>取消初始化</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>创建</translation>
    </message>
    <message>
        <source>Create repository</source>
        <translation>创建仓库</translation>
    </message>
</context>
<context>
    <name>orvel::InitViewModel</name>
    <message>
        <source>Choose a full path for the directory, such as ~/Projects/name.</source>
        <translation>请为目录选择完整路径，例如 ~/Projects/name。</translation>
    </message>
</context>
<context>
    <name>orvel::InteractiveRebaseViewModel</name>
    <message>
        <source>Load rebase todo failed: %1</source>
        <translation>加载变基待办列表失败：%1</translation>
    </message>
    <message>
        <source>No commits to rebase</source>
        <translation>没有要变基的提交</translation>
    </message>
    <message>
        <source>Rebase conflict at step %1/%2 in %3 file(s) — resolve and continue</source>
        <translation>变基在第 %1/%2 步遇到冲突，涉及 %3 个文件 — 请解决后继续</translation>
    </message>
    <message>
        <source>Rebase paused at step %1/%2 — amend and continue</source>
        <translation>变基在第 %1/%2 步暂停 — 请修补后继续</translation>
    </message>
    <message>
        <source>Interactive rebase completed</source>
        <translation>交互式变基完成</translation>
    </message>
    <message>
        <source>Interactive rebase failed: %1</source>
        <translation>交互式变基失败：%1</translation>
    </message>
</context>
<context>
    <name>orvel::KeyboardSettingsTab</name>
    <message>
        <source>Press keys…</source>
        <translation>请按键…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>录制</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Record a shortcut for %1</source>
        <translation>为 %1 录制快捷键</translation>
    </message>
    <message>
        <source>Reset the shortcut of %1</source>
        <translation>重置 %1 的快捷键</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>全部重置</translation>
    </message>
</context>
<context>
    <name>orvel::MainWindow</name>
    <message>
        <source>Orvel %1</source>
        <translation>Orvel %1</translation>
    </message>
    <message>
        <source>About Orvel</source>
        <translation>关于 Orvel</translation>
    </message>
    <message>
        <source>A desktop client for Git: graph first, merges second, no noise.</source>
        <translation>Git 桌面客户端：图在先，合并其次，没有干扰。</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>Open Repository…</source>
        <translation>打开仓库…</translation>
    </message>
    <message>
        <source>Clone…</source>
        <translation>克隆…</translation>
    </message>
    <message>
        <source>Initialize…</source>
        <translation>初始化…</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>关闭标签页</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>System</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Workspace</source>
        <translation>工作区</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>下一个标签页</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>上一个标签页</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Repositories</source>
        <translation>仓库</translation>
    </message>
    <message>
        <source>Working</source>
        <translation>处理中</translation>
    </message>
    <message>
        <source>Select a Git repository</source>
        <translation>选择一个 Git 仓库</translation>
    </message>
</context>
<context>
    <name>orvel::ManageRemotesSheet</name>
    <message>
        <source>Manage Remotes</source>
        <translation>管理远程</translation>
    </message>
    <message>
        <source>Loading remotes…</source>
        <translation>正在加载远程…</translation>
    </message>
    <message>
        <source>No remotes configured</source>
        <translation>未配置远程</translation>
    </message>
    <message>
        <source>Add a remote to push and pull from a server.</source>
        <translation>添加远程以便与服务器推送和拉取。</translation>
    </message>
    <message>
        <source>Remotes</source>
        <translation>远程</translation>
    </message>
    <message>
        <source>Add Remote</source>
        <translation>添加远程</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Remote URL</source>
        <translation>远程 URL</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>push:</source>
        <translation>推送：</translation>
    </message>
    <message>
        <source>Copy Fetch URL</source>
        <translation>复制抓取 URL</translation>
    </message>
    <message>
        <source>Copy Push URL</source>
        <translation>复制推送 URL</translation>
    </message>
    <message>
        <source>Remove &apos;%1&apos;</source>
        <translation>移除“%1”</translation>
    </message>
    <message>
        <source>Remove Remote</source>
        <translation>移除远程</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the remote &apos;%1&apos;? This will remove all remote-tracking branches and configuration for this remote.</source>
        <translation>确定要移除远程“%1”吗？这将移除此远程的所有远程跟踪分支和配置。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
</context>
<context>
    <name>orvel::ManageRemotesViewModel</name>
    <message>
        <source>A remote named &apos;%1&apos; already exists.</source>
        <translation>名为“%1”的远程已存在。</translation>
    </message>
    <message>
        <source>Remove remote failed: %1</source>
        <translation>移除远程失败：%1</translation>
    </message>
    <message>
        <source>Could not copy to clipboard</source>
        <translation>无法复制到剪贴板</translation>
    </message>
</context>
<context>
    <name>orvel::MarkdownView</name>
    <message>
        <source>Document</source>
        <translation>文档</translation>
    </message>
</context>
<context>
    <name>orvel::MergeLineModel</name>
    <message>
        <source>Line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>Line %1: %2, included</source>
        <translation>第 %1 行：%2，已采用</translation>
    </message>
    <message>
        <source>Line %1: %2, left out</source>
        <translation>第 %1 行：%2，已舍弃</translation>
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
    <name>orvel::RebasePlanDelegate</name>
    <message>
        <source>Shell command</source>
        <translation>Shell 命令</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
</context>
<context>
    <name>orvel::RebasePlanItemModel</name>
    <message>
        <source>Exec step: %1</source>
        <translation>exec 步骤：%1</translation>
    </message>
    <message>
        <source>Commit %1: %2, action: %3</source>
        <translation>提交 %1：%2，操作：%3</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Commit</source>
        <translation>提交</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>标题</translation>
    </message>
</context>
<context>
    <name>orvel::RebasePlanSheet</name>
    <message>
        <source>Interactive Rebase</source>
        <translation>交互式变基</translation>
    </message>
    <message>
        <source>Rebase onto &quot;%1&quot; (%2 commits)</source>
        <translation>变基到“%1”（%2 个提交）</translation>
    </message>
    <message>
        <source>Commits to rebase, oldest first</source>
        <translation>要变基的提交，从旧到新</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move the step up (Ctrl+Up)</source>
        <translation>上移此步骤（Ctrl+Up）</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Move the step down (Ctrl+Down)</source>
        <translation>下移此步骤（Ctrl+Down）</translation>
    </message>
    <message>
        <source>Edit Message</source>
        <translation>编辑信息</translation>
    </message>
    <message>
        <source>Edit commit message</source>
        <translation>编辑提交信息</translation>
    </message>
    <message>
        <source>Add Exec</source>
        <translation>添加 exec</translation>
    </message>
    <message>
        <source>Add a shell command to run between steps</source>
        <translation>添加在步骤之间运行的 shell 命令</translation>
    </message>
    <message>
        <source>Remove Exec</source>
        <translation>移除 exec</translation>
    </message>
    <message>
        <source>Remove exec step</source>
        <translation>移除 exec 步骤</translation>
    </message>
    <message>
        <source>Autosquash</source>
        <translation>自动压缩</translation>
    </message>
    <message>
        <source>Rearrange fixup!/squash! commits next to their targets</source>
        <translation>将 fixup!/squash! 提交移到其目标提交旁</translation>
    </message>
    <message>
        <source>Autosquash fixup and squash commits</source>
        <translation>自动压缩 fixup 与 squash 提交</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel rebase</source>
        <translation>取消变基</translation>
    </message>
    <message>
        <source>Start Rebase</source>
        <translation>开始变基</translation>
    </message>
    <message>
        <source>Start interactive rebase</source>
        <translation>开始交互式变基</translation>
    </message>
    <message>
        <source>Edit message for commit %1</source>
        <translation>编辑提交 %1 的信息</translation>
    </message>
</context>
<context>
    <name>orvel::RelativeDateFormatter</name>
    <message>
        <source>now</source>
        <translation>刚刚</translation>
    </message>
    <message>
        <source>1 yr. ago</source>
        <translation>1 年前</translation>
    </message>
    <message>
        <source>%1 yr. ago</source>
        <translation>%1 年前</translation>
    </message>
    <message>
        <source>in 1 yr.</source>
        <translation>1 年后</translation>
    </message>
    <message>
        <source>in %1 yr.</source>
        <translation>%1 年后</translation>
    </message>
    <message>
        <source>1 mo. ago</source>
        <translation>1 个月前</translation>
    </message>
    <message>
        <source>%1 mo. ago</source>
        <translation>%1 个月前</translation>
    </message>
    <message>
        <source>in 1 mo.</source>
        <translation>1 个月后</translation>
    </message>
    <message>
        <source>in %1 mo.</source>
        <translation>%1 个月后</translation>
    </message>
    <message>
        <source>1 wk. ago</source>
        <translation>1 周前</translation>
    </message>
    <message>
        <source>%1 wk. ago</source>
        <translation>%1 周前</translation>
    </message>
    <message>
        <source>in 1 wk.</source>
        <translation>1 周后</translation>
    </message>
    <message>
        <source>in %1 wk.</source>
        <translation>%1 周后</translation>
    </message>
    <message>
        <source>1 day ago</source>
        <translation>1 天前</translation>
    </message>
    <message>
        <source>%1 days ago</source>
        <translation>%1 天前</translation>
    </message>
    <message>
        <source>in 1 day</source>
        <translation>1 天后</translation>
    </message>
    <message>
        <source>in %1 days</source>
        <translation>%1 天后</translation>
    </message>
    <message>
        <source>1 hr. ago</source>
        <translation>1 小时前</translation>
    </message>
    <message>
        <source>%1 hr. ago</source>
        <translation>%1 小时前</translation>
    </message>
    <message>
        <source>in 1 hr.</source>
        <translation>1 小时后</translation>
    </message>
    <message>
        <source>in %1 hr.</source>
        <translation>%1 小时后</translation>
    </message>
    <message>
        <source>1 min. ago</source>
        <translation>1 分钟前</translation>
    </message>
    <message>
        <source>%1 min. ago</source>
        <translation>%1 分钟前</translation>
    </message>
    <message>
        <source>in 1 min.</source>
        <translation>1 分钟后</translation>
    </message>
    <message>
        <source>in %1 min.</source>
        <translation>%1 分钟后</translation>
    </message>
    <message>
        <source>1 sec. ago</source>
        <translation>1 秒前</translation>
    </message>
    <message>
        <source>%1 sec. ago</source>
        <translation>%1 秒前</translation>
    </message>
    <message>
        <source>in 1 sec.</source>
        <translation>1 秒后</translation>
    </message>
    <message>
        <source>in %1 sec.</source>
        <translation>%1 秒后</translation>
    </message>
</context>
<context>
    <name>orvel::RepoGraphPaneViewModel</name>
    <message>
        <source>Loading history… %1 commits</source>
        <translation>正在加载历史… %1 个提交</translation>
    </message>
    <message>
        <source>Commit %1 is not in the history</source>
        <translation>提交 %1 不在历史中</translation>
    </message>
    <message>
        <source>No commit is named “%1”</source>
        <translation>没有名为“%1”的提交</translation>
    </message>
    <message>
        <source>No repository loaded</source>
        <translation>未加载仓库</translation>
    </message>
    <message>
        <source>Could not copy to clipboard</source>
        <translation>无法复制到剪贴板</translation>
    </message>
    <message>
        <source>Resetting to %1…</source>
        <translation>正在重置到 %1…</translation>
    </message>
    <message>
        <source>Reset %1 to %2</source>
        <translation>已将 %1 重置到 %2</translation>
    </message>
    <message>
        <source>Reverting %1…</source>
        <translation>正在还原 %1…</translation>
    </message>
    <message>
        <source>Cherry-picking %1…</source>
        <translation>正在拣选 %1…</translation>
    </message>
    <message>
        <source>Revert conflict in %1 file(s). Resolve conflicts and commit.</source>
        <translation>还原在 %1 个文件中产生冲突。请解决冲突并提交。</translation>
    </message>
    <message>
        <source>Cherry-pick conflict in %1 file(s). Resolve conflicts and commit.</source>
        <translation>拣选在 %1 个文件中产生冲突。请解决冲突并提交。</translation>
    </message>
    <message>
        <source>Reverted %1</source>
        <translation>已还原 %1</translation>
    </message>
    <message>
        <source>Cherry-picked %1</source>
        <translation>已拣选 %1</translation>
    </message>
    <message>
        <source>Creating branch &apos;%1&apos;…</source>
        <translation>正在创建分支“%1”…</translation>
    </message>
    <message>
        <source>Created branch &apos;%1&apos; at %2</source>
        <translation>已在 %2 创建分支“%1”</translation>
    </message>
    <message>
        <source>Creating tag &apos;%1&apos;…</source>
        <translation>正在创建标签“%1”…</translation>
    </message>
    <message>
        <source>Created annotated tag &apos;%1&apos; at %2</source>
        <translation>已在 %2 创建附注标签“%1”</translation>
    </message>
    <message>
        <source>Created tag &apos;%1&apos; at %2</source>
        <translation>已在 %2 创建标签“%1”</translation>
    </message>
    <message>
        <source>Reset failed: %1</source>
        <translation>重置失败：%1</translation>
    </message>
    <message>
        <source>Revert failed: %1</source>
        <translation>还原失败：%1</translation>
    </message>
    <message>
        <source>Cherry-pick failed: %1</source>
        <translation>拣选失败：%1</translation>
    </message>
    <message>
        <source>Create branch failed: %1</source>
        <translation>创建分支失败：%1</translation>
    </message>
    <message>
        <source>Create tag failed: %1</source>
        <translation>创建标签失败：%1</translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryAuthorsSection</name>
    <message>
        <source>Select parent %1</source>
        <translation>选择父提交 %1</translation>
    </message>
    <message>
        <source>Parents:</source>
        <translation>父提交：</translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryCommitMessageSection</name>
    <message>
        <source>Commit: </source>
        <translation>提交：</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Message copied</source>
        <translation>已复制提交信息</translation>
    </message>
    <message>
        <source>Copy commit message</source>
        <translation>复制提交信息</translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryFileChangesSection</name>
    <message>
        <source>Changes against the first parent</source>
        <translation>相对于第一个父提交的更改</translation>
    </message>
    <message>
        <source>Loading file changes...</source>
        <translation>正在加载文件更改...</translation>
    </message>
    <message>
        <source>No files match the filter</source>
        <translation>没有匹配筛选条件的文件</translation>
    </message>
    <message>
        <source>No files changed in this commit</source>
        <translation>此提交没有更改文件</translation>
    </message>
    <message>
        <source>%1 file(s)</source>
        <translation>%1 个文件</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Filter files</source>
        <translation>筛选文件</translation>
    </message>
    <message>
        <source>Filter changed files</source>
        <translation>筛选更改的文件</translation>
    </message>
    <message>
        <source>A-Z</source>
        <translation>A-Z</translation>
    </message>
    <message>
        <source>Z-A</source>
        <translation>Z-A</translation>
    </message>
    <message>
        <source>Sort by path</source>
        <translation>按路径排序</translation>
    </message>
    <message>
        <source>Sorted by path, ascending</source>
        <translation>按路径升序排列</translation>
    </message>
    <message>
        <source>Sorted by path, descending</source>
        <translation>按路径降序排列</translation>
    </message>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Show as list</source>
        <translation>以列表显示</translation>
    </message>
    <message>
        <source>Tree</source>
        <translation>树</translation>
    </message>
    <message>
        <source>Show as tree</source>
        <translation>以树显示</translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryNotificationSection</name>
    <message>
        <source>%1 file(s) changed</source>
        <translation>已更改 %1 个文件</translation>
    </message>
    <message>
        <source>Go to Changes</source>
        <translation>转到更改</translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryPane</name>
    <message>
        <source>Select a commit to see its message, authors and changed files.</source>
        <translation>选择一个提交以查看其信息、作者和更改的文件。</translation>
    </message>
</context>
<context>
    <name>orvel::RepositoryPreview</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open repository</source>
        <translation>打开仓库</translation>
    </message>
    <message>
        <source>Close preview</source>
        <translation>关闭预览</translation>
    </message>
    <message>
        <source>Branches</source>
        <translation>分支</translation>
    </message>
    <message>
        <source>Recent Commits</source>
        <translation>最近的提交</translation>
    </message>
    <message>
        <source>README.md</source>
        <translation>README.md</translation>
    </message>
    <message>
        <source>Only the first %1 lines are shown.</source>
        <translation>只显示前 %1 行。</translation>
    </message>
    <message>
        <source>No README.md found</source>
        <translation>未找到 README.md</translation>
    </message>
    <message>
        <source>No branches found</source>
        <translation>未找到分支</translation>
    </message>
    <message>
        <source>+%1 more</source>
        <translation>还有 %1 个</translation>
    </message>
    <message>
        <source>No commits yet</source>
        <translation>尚无提交</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>正在加载…</translation>
    </message>
    <message>
        <source>README truncated at 1 MB</source>
        <translation>README 已在 1 MB 处截断</translation>
    </message>
</context>
<context>
    <name>orvel::RepositoryTabView</name>
    <message>
        <source>Changes</source>
        <translation>更改</translation>
    </message>
    <message>
        <source>History</source>
        <translation>历史</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
</context>
<context>
    <name>orvel::RewordMessageDialog</name>
    <message>
        <source>Edit Commit Message</source>
        <translation>编辑提交信息</translation>
    </message>
    <message>
        <source>New commit message</source>
        <translation>新的提交信息</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel editing message</source>
        <translation>取消编辑信息</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save new message</source>
        <translation>保存新信息</translation>
    </message>
</context>
<context>
    <name>orvel::SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>General</source>
        <translation>通用</translation>
    </message>
    <message>
        <source>Git</source>
        <translation>Git</translation>
    </message>
    <message>
        <source>Signing</source>
        <translation>签名</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>键盘</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Some settings failed to save</source>
        <translation>部分设置未能保存</translation>
    </message>
</context>
<context>
    <name>orvel::SettingsPathRow</name>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
</context>
<context>
    <name>orvel::SidebarFilterViewModel</name>
    <message>
        <source>Search timed out; try a simpler pattern</source>
        <translation>搜索超时，请尝试更简单的模式</translation>
    </message>
</context>
<context>
    <name>orvel::SidebarRowDelegate</name>
    <message>
        <source>CURRENT</source>
        <translation>当前</translation>
    </message>
</context>
<context>
    <name>orvel::SidebarTreeModel</name>
    <message>
        <source>Stash changes to save work in progress without committing.</source>
        <translation>储藏更改可以保存进行中的工作而无需提交。</translation>
    </message>
    <message>
        <source>No stashes</source>
        <translation>没有储藏</translation>
    </message>
    <message>
        <source>current branch</source>
        <translation>当前分支</translation>
    </message>
</context>
<context>
    <name>orvel::SidebarView</name>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Filter branches, tags and stashes</source>
        <translation>筛选分支、标签和储藏</translation>
    </message>
    <message>
        <source>Whole word match: query must appear as a complete word</source>
        <translation>全词匹配：查询内容须作为完整的词出现</translation>
    </message>
    <message>
        <source>Whole word match</source>
        <translation>全词匹配</translation>
    </message>
    <message>
        <source>Regular expression: use patterns like feature/.* or ^main$</source>
        <translation>正则表达式：使用 feature/.* 或 ^main$ 这样的模式</translation>
    </message>
    <message>
        <source>Regular expression</source>
        <translation>正则表达式</translation>
    </message>
    <message>
        <source>Manage Remotes…</source>
        <translation>管理远程…</translation>
    </message>
    <message>
        <source>Branches, tags and stashes</source>
        <translation>分支、标签和储藏</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Loading branches…</source>
        <translation>正在加载分支…</translation>
    </message>
    <message>
        <source>Empty repository</source>
        <translation>空仓库</translation>
    </message>
    <message>
        <source>Make your first commit to get started.</source>
        <translation>进行第一次提交即可开始。</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>没有匹配项</translation>
    </message>
    <message>
        <source>No branches, tags, or stashes match your query.</source>
        <translation>没有与查询匹配的分支、标签或储藏。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Branch &apos;%1&apos; is not fully merged</source>
        <translation>分支“%1”尚未完全合并</translation>
    </message>
    <message>
        <source>This branch has commits that have not been merged. Force deleting will permanently discard those commits once the reflog expires. This cannot be undone.</source>
        <translation>此分支含有尚未合并的提交。强制删除后，一旦引用日志过期，这些提交将永久丢失。此操作无法撤销。</translation>
    </message>
    <message>
        <source>Force Delete</source>
        <translation>强制删除</translation>
    </message>
    <message>
        <source>Delete remote branch &apos;%1&apos;?</source>
        <translation>删除远程分支“%1”？</translation>
    </message>
    <message>
        <source>This will delete the branch on the remote. This action cannot be undone locally.</source>
        <translation>这将删除远程上的分支。此操作无法在本地撤销。</translation>
    </message>
    <message>
        <source>Delete on Remote</source>
        <translation>在远程删除</translation>
    </message>
    <message>
        <source>Delete tag &apos;%1&apos;?</source>
        <translation>删除标签“%1”？</translation>
    </message>
    <message>
        <source>Tags do not have a reflog; this action cannot be undone locally. The remote tag (if any) is not affected.</source>
        <translation>标签没有引用日志；此操作无法在本地撤销。远程标签（如有）不受影响。</translation>
    </message>
    <message>
        <source>Delete Tag</source>
        <translation>删除标签</translation>
    </message>
    <message>
        <source>Drop stash?</source>
        <translation>丢弃储藏？</translation>
    </message>
    <message>
        <source>Stash drops cannot be undone.</source>
        <translation>丢弃的储藏无法恢复。</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>Checkout</source>
        <translation>检出</translation>
    </message>
    <message>
        <source>Merge &apos;%1&apos; into &apos;%2&apos;</source>
        <translation>将“%1”合并到“%2”</translation>
    </message>
    <message>
        <source>Fast-forward &apos;%1&apos; to &apos;%2&apos;</source>
        <translation>将“%1”快进到“%2”</translation>
    </message>
    <message>
        <source>Rebase &apos;%1&apos; onto &apos;%2&apos;</source>
        <translation>将“%1”变基到“%2”</translation>
    </message>
    <message>
        <source>Interactive Rebase &apos;%1&apos; onto &apos;%2&apos;…</source>
        <translation>将“%1”交互式变基到“%2”…</translation>
    </message>
    <message>
        <source>Pull</source>
        <translation>拉取</translation>
    </message>
    <message>
        <source>Push to %1</source>
        <translation>推送到 %1</translation>
    </message>
    <message>
        <source>Create Branch from &apos;%1&apos;…</source>
        <translation>从“%1”创建分支…</translation>
    </message>
    <message>
        <source>Create Tag at &apos;%1&apos;…</source>
        <translation>在“%1”创建标签…</translation>
    </message>
    <message>
        <source>Delete on Remote…</source>
        <translation>在远程删除…</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>重命名…</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Copy Name</source>
        <translation>复制名称</translation>
    </message>
    <message>
        <source>Show Detail</source>
        <translation>显示详情</translation>
    </message>
    <message>
        <source>Delete Tag…</source>
        <translation>删除标签…</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Pop</source>
        <translation>弹出</translation>
    </message>
    <message>
        <source>Drop…</source>
        <translation>丢弃…</translation>
    </message>
    <message>
        <source>Rename Branch</source>
        <translation>重命名分支</translation>
    </message>
    <message>
        <source>New name for &apos;%1&apos;:</source>
        <translation>“%1”的新名称：</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
</context>
<context>
    <name>orvel::SidebarViewModel</name>
    <message>
        <source>No repository loaded</source>
        <translation>未加载仓库</translation>
    </message>
    <message>
        <source>Already on branch &apos;%1&apos;</source>
        <translation>已在分支“%1”上</translation>
    </message>
    <message>
        <source>Switched to branch &apos;%1&apos;</source>
        <translation>已切换到分支“%1”</translation>
    </message>
    <message>
        <source>Checkout did not land on &apos;%1&apos; (HEAD is &apos;%2&apos;). Resolve in terminal.</source>
        <translation>检出后未停在“%1”（HEAD 为“%2”）。请在终端中处理。</translation>
    </message>
    <message>
        <source>Not a remote branch: %1</source>
        <translation>不是远程分支：%1</translation>
    </message>
    <message>
        <source>Invalid remote branch ref: %1</source>
        <translation>无效的远程分支引用：%1</translation>
    </message>
    <message>
        <source>Switched to local branch &apos;%1&apos;</source>
        <translation>已切换到本地分支“%1”</translation>
    </message>
    <message>
        <source>Created and switched to &apos;%1&apos; tracking &apos;%2&apos;</source>
        <translation>已创建并切换到“%1”，跟踪“%2”</translation>
    </message>
    <message>
        <source>Checked out tag &apos;%1&apos; (detached HEAD)</source>
        <translation>已检出标签“%1”（分离 HEAD）</translation>
    </message>
    <message>
        <source>Pushed tag &apos;%1&apos; to %2</source>
        <translation>已将标签“%1”推送到 %2</translation>
    </message>
    <message>
        <source>Cannot fast-forward; branches have diverged</source>
        <translation>无法快进：分支已分叉</translation>
    </message>
    <message>
        <source>Pushed &apos;%1&apos; to %2</source>
        <translation>已将“%1”推送到 %2</translation>
    </message>
    <message>
        <source>Already up to date</source>
        <translation>已是最新</translation>
    </message>
    <message>
        <source>Rebased onto &apos;%1&apos;</source>
        <translation>已变基到“%1”</translation>
    </message>
    <message>
        <source>Rebase conflict in %1 file(s) — resolve and continue</source>
        <translation>变基在 %1 个文件中产生冲突 — 请解决后继续</translation>
    </message>
    <message>
        <source>Rename failed: %1</source>
        <translation>重命名失败：%1</translation>
    </message>
    <message>
        <source>Renamed &apos;%1&apos; to &apos;%2&apos;</source>
        <translation>已将“%1”重命名为“%2”</translation>
    </message>
    <message>
        <source>Delete failed: %1</source>
        <translation>删除失败：%1</translation>
    </message>
    <message>
        <source>Deleted branch &apos;%1&apos;</source>
        <translation>已删除分支“%1”</translation>
    </message>
    <message>
        <source>Force deleted branch &apos;%1&apos;</source>
        <translation>已强制删除分支“%1”</translation>
    </message>
    <message>
        <source>Deleted remote branch &apos;%1&apos;</source>
        <translation>已删除远程分支“%1”</translation>
    </message>
    <message>
        <source>Deleted tag &apos;%1&apos;</source>
        <translation>已删除标签“%1”</translation>
    </message>
    <message>
        <source>Stash apply conflict in %1 file(s)</source>
        <translation>应用储藏时在 %1 个文件中产生冲突</translation>
    </message>
    <message>
        <source>Applied stash: %1</source>
        <translation>已应用储藏：%1</translation>
    </message>
    <message>
        <source>Stash apply conflict in %1 file(s) — stash kept</source>
        <translation>应用储藏时在 %1 个文件中产生冲突 — 储藏已保留</translation>
    </message>
    <message>
        <source>Applied OK but drop failed: %1</source>
        <translation>已应用，但丢弃储藏失败：%1</translation>
    </message>
    <message>
        <source>Dropped stash: %1</source>
        <translation>已丢弃储藏：%1</translation>
    </message>
    <message>
        <source>Created and checked out &apos;%1&apos;</source>
        <translation>已创建并检出“%1”</translation>
    </message>
    <message>
        <source>Created branch &apos;%1&apos;</source>
        <translation>已创建分支“%1”</translation>
    </message>
    <message>
        <source>Created tag &apos;%1&apos;</source>
        <translation>已创建标签“%1”</translation>
    </message>
    <message>
        <source>The stashes changed since they were listed; nothing was done. Choose the stash again from the updated list.</source>
        <translation>列出储藏之后它们已发生变化，未执行任何操作。请从更新后的列表中重新选择储藏。</translation>
    </message>
    <message>
        <source>Checkout failed: %1</source>
        <translation>检出失败：%1</translation>
    </message>
    <message>
        <source>Push tag failed: %1</source>
        <translation>推送标签失败：%1</translation>
    </message>
    <message>
        <source>Push failed: %1</source>
        <translation>推送失败：%1</translation>
    </message>
    <message>
        <source>Merge failed: %1</source>
        <translation>合并失败：%1</translation>
    </message>
    <message>
        <source>Pull failed: %1</source>
        <translation>拉取失败：%1</translation>
    </message>
    <message>
        <source>Rebase failed: %1</source>
        <translation>变基失败：%1</translation>
    </message>
    <message>
        <source>Load rebase todo failed: %1</source>
        <translation>加载变基待办列表失败：%1</translation>
    </message>
    <message>
        <source>Create branch failed: %1</source>
        <translation>创建分支失败：%1</translation>
    </message>
    <message>
        <source>Create tag failed: %1</source>
        <translation>创建标签失败：%1</translation>
    </message>
    <message>
        <source>Force delete failed: %1</source>
        <translation>强制删除失败：%1</translation>
    </message>
    <message>
        <source>Delete remote branch failed: %1</source>
        <translation>删除远程分支失败：%1</translation>
    </message>
    <message>
        <source>Delete tag failed: %1</source>
        <translation>删除标签失败：%1</translation>
    </message>
    <message>
        <source>Apply stash failed: %1</source>
        <translation>应用储藏失败：%1</translation>
    </message>
    <message>
        <source>Drop stash failed: %1</source>
        <translation>丢弃储藏失败：%1</translation>
    </message>
    <message>
        <source>Failed to get tag detail: %1</source>
        <translation>获取标签详情失败：%1</translation>
    </message>
</context>
<context>
    <name>orvel::SigningSettingsTab</name>
    <message>
        <source>Signing Format</source>
        <translation>签名格式</translation>
    </message>
    <message>
        <source>GPG</source>
        <translation>GPG</translation>
    </message>
    <message>
        <source>SSH</source>
        <translation>SSH</translation>
    </message>
    <message>
        <source>GPG Program</source>
        <translation>GPG 程序</translation>
    </message>
    <message>
        <source>Signing Key</source>
        <translation>签名密钥</translation>
    </message>
    <message>
        <source>SSH Signing Key</source>
        <translation>SSH 签名密钥</translation>
    </message>
    <message>
        <source>Allowed Signers</source>
        <translation>允许的签名者</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source>Sign Commits</source>
        <translation>签名提交</translation>
    </message>
    <message>
        <source>Sign Tags</source>
        <translation>签名标签</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Expires: %1</source>
        <translation>到期：%1</translation>
    </message>
    <message>
        <source>No GPG keys found. Install gpg and create a key.</source>
        <translation>未找到 GPG 密钥。请安装 gpg 并创建密钥。</translation>
    </message>
    <message>
        <source>No SSH keys found in ~/.ssh/</source>
        <translation>在 ~/.ssh/ 中未找到 SSH 密钥</translation>
    </message>
    <message>
        <source>Choose GPG Program</source>
        <translation>选择 GPG 程序</translation>
    </message>
    <message>
        <source>Choose SSH Signing Key</source>
        <translation>选择 SSH 签名密钥</translation>
    </message>
    <message>
        <source>Choose Allowed Signers File</source>
        <translation>选择允许的签名者文件</translation>
    </message>
    <message>
        <source>Signing Identity Mismatch</source>
        <translation>签名身份不匹配</translation>
    </message>
    <message>
        <source>Your git email (%1) does not match the signing key email (%2). Commits may appear unverified on GitHub.

&quot;Update Email&quot; will set your git email to %2.</source>
        <translation>你的 git 邮箱（%1）与签名密钥的邮箱（%2）不一致。提交在 GitHub 上可能显示为未验证。

“更新邮箱”会把你的 git 邮箱设为 %2。</translation>
    </message>
    <message>
        <source>Update Email</source>
        <translation>更新邮箱</translation>
    </message>
    <message>
        <source>Edit Manually</source>
        <translation>手动编辑</translation>
    </message>
</context>
<context>
    <name>orvel::SigningSettingsViewModel</name>
    <message>
        <source>Signing: Off</source>
        <translation>签名：关闭</translation>
    </message>
    <message>
        <source>GPG: No key</source>
        <translation>GPG：无密钥</translation>
    </message>
    <message>
        <source>SSH: No key</source>
        <translation>SSH：无密钥</translation>
    </message>
    <message>
        <source>GPG: %1</source>
        <translation>GPG：%1</translation>
    </message>
    <message>
        <source>SSH: %1</source>
        <translation>SSH：%1</translation>
    </message>
</context>
<context>
    <name>orvel::StashPrompt</name>
    <message>
        <source>Stash Changes</source>
        <translation>储藏更改</translation>
    </message>
    <message>
        <source>Enter a name for this stash, or leave empty for default</source>
        <translation>输入此储藏的名称，留空则使用默认名称</translation>
    </message>
    <message>
        <source>Stash name</source>
        <translation>储藏名称</translation>
    </message>
    <message>
        <source>Stash</source>
        <translation>储藏</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>orvel::TagDetailSheet</name>
    <message>
        <source>Tag &apos;%1&apos;</source>
        <translation>标签“%1”</translation>
    </message>
    <message>
        <source>Tag detail</source>
        <translation>标签详情</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>orvel::ThemeCatalogue</name>
    <message>
        <source>Petrol teal, brushed gold, hairline ornament — the steppe</source>
        <translation>石油青、拉丝金、细线纹饰——草原</translation>
    </message>
    <message>
        <source>Sky steel — brushed pewter, cool phosphor</source>
        <translation>天空钢——拉丝锡镴、冷磷光</translation>
    </message>
    <message>
        <source>White palace — champagne on obsidian</source>
        <translation>白色宫殿——黑曜石上的香槟色</translation>
    </message>
    <message>
        <source>Ember — oxy orange, violet core, electric mint</source>
        <translation>余烬——氧化橙、紫罗兰内核、电光薄荷</translation>
    </message>
    <message>
        <source>Nomad — felt ochre, horizon blue, herb green</source>
        <translation>游牧——毛毡赭、地平线蓝、草本绿</translation>
    </message>
    <message>
        <source>Paper — ink, foxed vellum, library lamp</source>
        <translation>纸张——墨水、泛黄的羊皮纸、图书馆的灯</translation>
    </message>
    <message>
        <source>Summer pasture — oat, driftwood, sage</source>
        <translation>夏季牧场——燕麦、浮木、鼠尾草</translation>
    </message>
    <message>
        <source>Complete — saturated full spectrum</source>
        <translation>完整——饱和的全光谱</translation>
    </message>
    <message>
        <source>Pale sky — chalk blue, dove grey, faded plaster</source>
        <translation>淡天——粉笔蓝、鸽灰、褪色的灰泥</translation>
    </message>
    <message>
        <source>Dusty olive — sage, pear-bloom, faded eucalyptus</source>
        <translation>灰橄榄——鼠尾草、梨花、褪色的桉叶</translation>
    </message>
    <message>
        <source>Clear, distinct — WCAG AAA reference</source>
        <translation>清晰、分明——WCAG AAA 基准</translation>
    </message>
    <message>
        <source>Qara Saksaýyl — black saxaul. Dusk dunes, desert wood.</source>
        <translation>Qara Saksaýyl——黑梭梭。黄昏的沙丘、荒漠之木。</translation>
    </message>
    <message>
        <source>Aq-Qyzyl — white &amp; red. Kiln-fired earthenware.</source>
        <translation>Aq-Qyzyl——白与红。窑烧的陶器。</translation>
    </message>
    <message>
        <source>Janar — glowing, radiant. LCL violet, radiant green.</source>
        <translation>Janar——闪耀、光芒四射。LCL 紫、辐射绿。</translation>
    </message>
    <message>
        <source>Altyn Jol — golden road. Blueprint cobalt, canvas off-white.</source>
        <translation>Altyn Jol——金色之路。蓝图钴蓝、画布米白。</translation>
    </message>
    <message>
        <source>Tün Perde — night veil. Noir indigo, silk moon.</source>
        <translation>Tün Perde——夜幕。黑靛蓝、丝绸之月。</translation>
    </message>
    <message>
        <source>Kün Dala — sun steppe. Copper sun, kelp, horizon.</source>
        <translation>Kün Dala——阳光草原。铜色的太阳、海藻、地平线。</translation>
    </message>
    <message>
        <source>RX-78 — Federation livery. Ivory plating, core red, thruster yellow.</source>
        <translation>RX-78——联邦涂装。象牙色装甲、核心红、推进器黄。</translation>
    </message>
    <message>
        <source>Zeon — Char&apos;s crimson. Three times faster.</source>
        <translation>Zeon——夏亚的深红。三倍速。</translation>
    </message>
    <message>
        <source>Neo Almaty — cyberpunk city. Hot magenta, cyan neon, midnight slab.</source>
        <translation>Neo Almaty——赛博朋克之城。炽热品红、青色霓虹、午夜石板。</translation>
    </message>
    <message>
        <source>Fluor — fluorescent high-contrast. Neon markers on pitch.</source>
        <translation>Fluor——荧光高对比度。漆黑上的霓虹记号。</translation>
    </message>
    <message>
        <source>Aquarelle — watercolour wash. Damp paper, bleeding pigments.</source>
        <translation>Aquarelle——水彩晕染。湿纸、渗开的颜料。</translation>
    </message>
    <message>
        <source>Köki Altyn — sky and gold. The national palette.</source>
        <translation>Köki Altyn——天空与金色。国家的配色。</translation>
    </message>
</context>
<context>
    <name>orvel::ThemeEngine</name>
    <message>
        <source>Could not remove the theme %1: %2</source>
        <translation>无法移除主题 %1：%2</translation>
    </message>
    <message>
        <source>There is no folder for application data.</source>
        <translation>没有用于存放应用数据的文件夹。</translation>
    </message>
    <message>
        <source>Could not create the folder %1.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
</context>
<context>
    <name>orvel::ToolbarStatusView</name>
    <message>
        <source>%1 ahead, %2 behind</source>
        <translation>领先 %1，落后 %2</translation>
    </message>
</context>
<context>
    <name>orvel::WelcomeView</name>
    <message>
        <source>Recent Repositories</source>
        <translation>最近的仓库</translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation>最近的仓库</translation>
    </message>
    <message>
        <source>No Recents Yet</source>
        <translation>还没有最近的仓库</translation>
    </message>
    <message>
        <source>Open, clone or initialize a repository to see it here.</source>
        <translation>打开、克隆或初始化一个仓库，它就会显示在这里。</translation>
    </message>
    <message>
        <source>Welcome to Orvel</source>
        <translation>欢迎使用 Orvel</translation>
    </message>
    <message>
        <source>Pick a repository to see its graph, its changes and its branches.</source>
        <translation>选择一个仓库，查看它的提交图、更改和分支。</translation>
    </message>
    <message>
        <source>Open a Repository</source>
        <translation>打开仓库</translation>
    </message>
    <message>
        <source>point Orvel at a folder already under Git</source>
        <translation>让 Orvel 打开一个已由 Git 管理的文件夹</translation>
    </message>
    <message>
        <source>Clone</source>
        <translation>克隆</translation>
    </message>
    <message>
        <source>from origin, GitHub, GitLab, or any SSH URL</source>
        <translation>来自 origin、GitHub、GitLab 或任意 SSH URL</translation>
    </message>
    <message>
        <source>Initialize</source>
        <translation>初始化</translation>
    </message>
    <message>
        <source>start a new repo from an empty folder</source>
        <translation>从空文件夹新建一个仓库</translation>
    </message>
    <message>
        <source>or drag a folder anywhere in this window</source>
        <translation>或将文件夹拖到此窗口的任意位置</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Remove from Recents</source>
        <translation>从最近列表中移除</translation>
    </message>
    <message>
        <source>Select a Git repository</source>
        <translation>选择一个 Git 仓库</translation>
    </message>
</context>
<context>
    <name>orvel::WelcomeViewModel</name>
    <message>
        <source>Removed invalid repos: %1</source>
        <translation>已移除无效的仓库：%1</translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceCommandPrompts</name>
    <message>
        <source>Force Push</source>
        <translation>强制推送</translation>
    </message>
    <message>
        <source>Discard Uncommitted Changes?</source>
        <translation>丢弃未提交的更改？</translation>
    </message>
    <message>
        <source>Discard %1 uncommitted change(s)? This cannot be undone. Stashing is safer.</source>
        <translation>丢弃 %1 项未提交的更改？此操作无法撤销。储藏会更安全。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Discard and Create Branch</source>
        <translation>丢弃并创建分支</translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceCommands</name>
    <message>
        <source>Created tag &apos;%1&apos;</source>
        <translation>已创建标签“%1”</translation>
    </message>
    <message>
        <source>Tag creation failed: %1</source>
        <translation>创建标签失败：%1</translation>
    </message>
    <message>
        <source>Fetching from %1…</source>
        <translation>正在从 %1 抓取…</translation>
    </message>
    <message>
        <source>Fetched from %1</source>
        <translation>已从 %1 抓取</translation>
    </message>
    <message>
        <source>Pulling from %1…</source>
        <translation>正在从 %1 拉取…</translation>
    </message>
    <message>
        <source>Pull conflict in %1 file(s)</source>
        <translation>拉取在 %1 个文件中产生冲突</translation>
    </message>
    <message>
        <source>Pulled (merge)</source>
        <translation>已拉取（合并）</translation>
    </message>
    <message>
        <source>Pulled (fast-forward)</source>
        <translation>已拉取（快进）</translation>
    </message>
    <message>
        <source>Already up to date</source>
        <translation>已是最新</translation>
    </message>
    <message>
        <source>Force pushing…</source>
        <translation>正在强制推送…</translation>
    </message>
    <message>
        <source>Pushing…</source>
        <translation>正在推送…</translation>
    </message>
    <message>
        <source>Force pushed to %1</source>
        <translation>已强制推送到 %1</translation>
    </message>
    <message>
        <source>Pushed to %1</source>
        <translation>已推送到 %1</translation>
    </message>
    <message>
        <source>Nothing to stash; working tree is clean</source>
        <translation>没有可储藏的内容；工作区是干净的</translation>
    </message>
    <message>
        <source>Stashing changes…</source>
        <translation>正在储藏更改…</translation>
    </message>
    <message>
        <source>Stash failed: %1</source>
        <translation>储藏失败：%1</translation>
    </message>
    <message>
        <source>Changes stashed</source>
        <translation>已储藏更改</translation>
    </message>
    <message>
        <source>Popping stash…</source>
        <translation>正在弹出储藏…</translation>
    </message>
    <message>
        <source>Stash pop conflict in %1 file(s)</source>
        <translation>弹出储藏时在 %1 个文件中产生冲突</translation>
    </message>
    <message>
        <source>Stash popped</source>
        <translation>已弹出储藏</translation>
    </message>
    <message>
        <source>Creating branch &apos;%1&apos;…</source>
        <translation>正在创建分支“%1”…</translation>
    </message>
    <message>
        <source>Your changes were auto-stashed before the failed operation. Reapply from the Stash section to recover them.</source>
        <translation>你的更改在失败的操作之前已自动储藏。可从“储藏”部分重新应用以恢复它们。</translation>
    </message>
    <message>
        <source>Branch &apos;%1&apos; was created, but checkout failed. Your changes are on the stash stack; reapply from the Stash section.</source>
        <translation>分支“%1”已创建，但检出失败。你的更改在储藏栈中；请从“储藏”部分重新应用。</translation>
    </message>
    <message>
        <source>Created and checked out &apos;%1&apos;</source>
        <translation>已创建并检出“%1”</translation>
    </message>
    <message>
        <source>Created branch &apos;%1&apos;</source>
        <translation>已创建分支“%1”</translation>
    </message>
    <message>
        <source>Branch created, but your changes are still on the stash stack. Reapply from the Stash section. (%1)</source>
        <translation>分支已创建，但你的更改仍在储藏栈中。请从“储藏”部分重新应用。（%1）</translation>
    </message>
    <message>
        <source>Stash reapplied with conflicts in %1 file(s). Resolve before continuing.</source>
        <translation>重新应用储藏时在 %1 个文件中产生冲突。请先解决再继续。</translation>
    </message>
    <message>
        <source>The remote branch has %1 commit(s) that are not in yours. Force pushing replaces the remote branch with yours, and those commits are lost for everyone.</source>
        <translation>远程分支有 %1 个提交不在你的分支中。强制推送会用你的分支替换远程分支，这些提交将对所有人丢失。</translation>
    </message>
    <message>
        <source>Force pushing replaces the remote branch with yours. Commits on the remote that are not in yours are lost for everyone.</source>
        <translation>强制推送会用你的分支替换远程分支。远程上不在你分支中的提交将对所有人丢失。</translation>
    </message>
    <message>
        <source>Creating tag &apos;%1&apos;…</source>
        <translation>正在创建标签“%1”…</translation>
    </message>
    <message>
        <source>Fetch failed: %1</source>
        <translation>抓取失败：%1</translation>
    </message>
    <message>
        <source>Pull failed: %1</source>
        <translation>拉取失败：%1</translation>
    </message>
    <message>
        <source>Push failed: %1</source>
        <translation>推送失败：%1</translation>
    </message>
    <message>
        <source>Stash pop failed: %1</source>
        <translation>弹出储藏失败：%1</translation>
    </message>
    <message>
        <source>Discard failed: %1</source>
        <translation>丢弃失败：%1</translation>
    </message>
    <message>
        <source>No local changes to save</source>
        <translation>没有要保存的本地更改</translation>
    </message>
    <message>
        <source>Create branch failed: %1</source>
        <translation>创建分支失败：%1</translation>
    </message>
    <message>
        <source>Checkout failed: %1</source>
        <translation>检出失败：%1</translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceMenu</name>
    <message>
        <source>Fetch</source>
        <translation>抓取</translation>
    </message>
    <message>
        <source>Pull</source>
        <translation>拉取</translation>
    </message>
    <message>
        <source>Push</source>
        <translation>推送</translation>
    </message>
    <message>
        <source>Force Push...</source>
        <translation>强制推送...</translation>
    </message>
    <message>
        <source>New Branch…</source>
        <translation>新建分支…</translation>
    </message>
    <message>
        <source>New Tag…</source>
        <translation>新建标签…</translation>
    </message>
    <message>
        <source>Stash Changes…</source>
        <translation>储藏更改…</translation>
    </message>
    <message>
        <source>Pop Stash</source>
        <translation>弹出储藏</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceTabState</name>
    <message>
        <source>Live refresh is off for %1: the system&apos;s limit of file watches is reached. Changes made outside Orvel show after a manual refresh.</source>
        <translation>%1 的实时刷新已关闭：已达到系统的文件监视数量上限。在 Orvel 之外所做的更改需手动刷新后才会显示。</translation>
    </message>
</context>
<context>
    <name>orvel::AppearancePicker</name>
    <message>
        <source>System</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Appearance:</source>
        <translation>外观：</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
</context>
<context>
    <name>orvel::GeneralSettingsTab</name>
    <message>
        <source>Hyphen (-)</source>
        <translation>连字符 (-)</translation>
    </message>
    <message>
        <source>Underscore (_)</source>
        <translation>下划线 (_)</translation>
    </message>
    <message>
        <source>Dot (.)</source>
        <translation>点 (.)</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1K lines</source>
        <translation>%1K 行</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Auto-Fetch Interval (min)</source>
        <translation>自动获取间隔（分钟）</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Auto-Prune</source>
        <translation>自动清理</translation>
    </message>
    <message>
        <source>Branch Creation</source>
        <translation>分支创建</translation>
    </message>
    <message>
        <source>Replace spaces with</source>
        <translation>空格替换为</translation>
    </message>
    <message>
        <source>Clone &amp; Init</source>
        <translation>克隆与初始化</translation>
    </message>
    <message>
        <source>Init commit message</source>
        <translation>初始提交信息</translation>
    </message>
    <message>
        <source>Init commit description</source>
        <translation>初始提交描述</translation>
    </message>
    <message>
        <source>Initial file for empty repos</source>
        <translation>空仓库的初始文件</translation>
    </message>
    <message>
        <source>Diff</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>Large file size</source>
        <translation>大文件大小</translation>
    </message>
    <message>
        <source>Large file lines</source>
        <translation>大文件行数</translation>
    </message>
</context>
<context>
    <name>orvel::UndoViewModel</name>
    <message>
        <source>Restore discarded file &quot;%1&quot;</source>
        <translation>恢复已丢弃的文件“%1”</translation>
    </message>
    <message>
        <source>Restore %1 discarded files</source>
        <translation>恢复 %1 个已丢弃的文件</translation>
    </message>
    <message>
        <source>Bring back branch &quot;%1&quot; at %2</source>
        <translation>在 %2 处恢复分支“%1”</translation>
    </message>
    <message>
        <source>Bring back stash &quot;%1&quot;</source>
        <translation>恢复储藏“%1”</translation>
    </message>
    <message>
        <source>Undo hard reset of %1 to %2</source>
        <translation>撤销将 %1 硬重置到 %2</translation>
    </message>
    <message>
        <source>Undo rebase of %1</source>
        <translation>撤销 %1 的变基</translation>
    </message>
    <message>
        <source>Undo merge into %1</source>
        <translation>撤销合并到 %1</translation>
    </message>
    <message>
        <source>Undo amend of %1</source>
        <translation>撤销 %1 的修补提交</translation>
    </message>
    <message>
        <source>Undo force push of %1 to %2</source>
        <translation>撤销将 %1 强制推送到 %2</translation>
    </message>
    <message>
        <source>Undo failed: %1</source>
        <translation>撤销失败：%1</translation>
    </message>
    <message>
        <source>Undone</source>
        <translation>已撤销</translation>
    </message>
</context>
<context>
    <name>orvel::UndoMenu</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>%1?

Files and branches go back to what they were before.</source>
        <translation>%1？

文件和分支将回到之前的状态。</translation>
    </message>
    <message>
        <source>Undo History…</source>
        <translation>撤销历史…</translation>
    </message>
    <message>
        <source>Undo: %1</source>
        <translation>撤销：%1</translation>
    </message>
    <message>
        <source>Nothing to undo</source>
        <translation>没有可撤销的操作</translation>
    </message>
</context>
<context>
    <name>orvel::UndoHistoryDialog</name>
    <message>
        <source>Undo History</source>
        <translation>撤销历史</translation>
    </message>
    <message>
        <source>Undo…</source>
        <translation>撤销…</translation>
    </message>
    <message>
        <source>Undo pull into %1</source>
        <translation>撤销拉取到 %1</translation>
    </message>
    <message>
        <source>You can bring it back with Edit &gt; Undo.</source>
        <translation>可以通过“编辑 > 撤销”恢复。</translation>
    </message>
    <message>
        <source>Are you sure you want to discard all changes to &quot;%1&quot;?</source>
        <translation>确定要丢弃“%1”的所有更改吗？</translation>
    </message>
    <message>
        <source>Are you sure you want to discard all changes?</source>
        <translation>确定要丢弃所有更改吗？</translation>
    </message>
    <message>
        <source>Discard %1 uncommitted change(s)?</source>
        <translation>丢弃 %1 项未提交的更改？</translation>
    </message>
    <message>
        <source>The chosen lines&apos; changes will be discarded.</source>
        <translation>所选行的更改将被丢弃。</translation>
    </message>
    <message>
        <source>This hunk&apos;s changes will be discarded.</source>
        <translation>此区块的更改将被丢弃。</translation>
    </message>
    <message>
        <source>This branch has commits that have not been merged.</source>
        <translation>此分支含有尚未合并的提交。</translation>
    </message>
    <message>
        <source>This will delete the branch on the remote.</source>
        <translation>这将删除远程上的分支。</translation>
    </message>
    <message>
        <source>Reset to %1? This will move HEAD to that commit and discard any uncommitted changes plus any commits that are not reachable from another branch.</source>
        <translation>重置到 %1？这会将 HEAD 移到该提交，并丢弃所有未提交的更改以及无法从其他分支到达的提交。</translation>
    </message>
</context>
</TS>
