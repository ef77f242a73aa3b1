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
    <message>
        <source>Amend and Push</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amend Previous Commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit and Push</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to delete &quot;%1&quot;? This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard Untracked File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This file is untracked. It cannot be restored by git. Choose how to discard it:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard Changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to discard all changes to &quot;%1&quot;? This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstage Selected (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stage Selected (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accept Theirs (Incoming)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accept Ours (Current)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash This File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to .gitignore</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blame This File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File History</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Don&apos;t change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash and reapply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>binary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merging: resolve conflicts and commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort Merge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebasing: resolve conflicts and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort Rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-picking: resolve conflicts and commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort Cherry-pick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverting: resolve conflicts and commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort Revert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge aborted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort merge failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase aborted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort rebase failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-pick aborted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort cherry-pick failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert aborted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort revert failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search Git History</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fetch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash Changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LOCAL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>REMOTE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TAGS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>STASHES</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot checkout: you have uncommitted changes. Commit or stash them first.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::AppViewModel</name>
    <message>
        <source>Failed to open repository: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removed invalid repos: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::AutoFetchScheduler</name>
    <message>
        <source>Auto-fetch resumed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto-fetch paused after 3 failures. A successful manual fetch will resume it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::BlameSheet</name>
    <message>
        <source>Commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Author</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blame: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No blame data available</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::BranchNameValidator</name>
    <message>
        <source>Must be 255 characters or fewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot end with &apos;.&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot end with &apos;/&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot end with &apos;.lock&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot contain &apos;..&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot contain &apos;//&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot contain &apos;@{&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;@&apos; alone is not valid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Path components cannot start with &apos;.&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot be empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot start with &apos;-&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot start with &apos;.&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot contain spaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot contain control characters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot contain &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ChangesFileSection</name>
    <message>
        <source>Staged (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstaged (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstage Selected (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstage All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stage Selected (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stage All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Staged files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstaged files</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPage</name>
    <message>
        <source>No File Selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a file to see its changes.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPaneCommit</name>
    <message>
        <source>Push is disabled during merge/rebase/cherry-pick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 characters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force Push Required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The commit you&apos;re amending was already pushed. Pushing will require a force push, which can discard a colleague&apos;s work. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Commit subject</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description (optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit and Push</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPaneHeader</name>
    <message>
        <source>Discard All Changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to discard all changes? This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter changes...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show as list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tree</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show as tree</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discarding all changes…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ChangesPaneViewModel</name>
    <message>
        <source>Could not copy to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not reveal file in File Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to delete file: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to update .gitignore</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to discard %1 file(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No staged files to commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amending commit…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Committing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Committed successfully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pushing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push failed; your commit was saved locally: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Committed and pushed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amend-push cancelled; your amended commit is saved locally and requires a force push to publish</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::CloneSheet</name>
    <message>
        <source>Choose Clone Destination</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clone Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clone a remote repository to your machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository URL:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Destination:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Destination</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse for destination folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cloning…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Cancel clone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clone repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Empty Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This repository is empty. Orvel will create a %1 file, commit with &quot;%2&quot;, and push to the remote. You can change these in Settings → General.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Initialize &amp; Push</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::CloneViewModel</name>
    <message>
        <source>Choose a full path for the destination, such as ~/Projects/name.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ConflictBanner</name>
    <message>
        <source>Open Merge Editor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the merge editor on the selected conflicted file</source>
        <translation>在所选的冲突文件上打开合并编辑器</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip this commit of the rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue the rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will discard all conflict resolutions and return to the previous state. This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ConflictBannerViewModel</name>
    <message>
        <source>Conflict at step %1/%2 in %3 file(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase paused; amend and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paused at step %1/%2; amend and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase completed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ConflictResolutionView</name>
    <message>
        <source>Merge Editor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resolve %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt; Prev</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous conflict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next &gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next conflict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take All Ours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take ours in every conflict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take All Theirs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take theirs in every conflict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open in Text Editor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit the whole file as text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the conflict again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep only side A of this conflict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>B only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep only side B of this conflict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Both</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep side A, then side B</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep no line of this conflict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A: Ours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines of side A (ours)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>B: Theirs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines of side B (theirs)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The resolved file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try saving again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Close the merge editor without saving</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp; Stage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the resolution and stage the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Conflict position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading conflict…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Conflict %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A: Ours (%1)</source>
        <translation>A：我方（%1）</translation>
    </message>
    <message>
        <source>B: Theirs (%1)</source>
        <translation>B：对方（%1）</translation>
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
    <name>orvel::CreateBranchSheet</name>
    <message>
        <source>Create Branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create new branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create branch at:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Branch name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Branch name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check out after create</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Cancel creating branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Advanced Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local changes:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create and Checkout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create branch and check it out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create branch</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::CreateBranchViewModel</name>
    <message>
        <source>Create branch failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::CreateTagSheet</name>
    <message>
        <source>Create Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tag name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tag name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tag message (creates annotated tag):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tag message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tag at:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Advanced Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading commits...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Cancel creating tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create tag</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::CreateTagViewModel</name>
    <message>
        <source>Invalid tag name: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create tag failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::CredentialDialog</name>
    <message>
        <source>Enter password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reveal password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git Credential Request</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credential input field</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Cancel credential request</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Submit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Submit credential</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::DiffDetailViewModel</name>
    <message>
        <source>The diff changed after the hunk was chosen, so nothing was done. It has been read again: choose the hunk once more.</source>
        <translation>选择该区块后差异已经变化，因此没有执行任何操作。差异已重新读取：请再次选择该区块。</translation>
    </message>
</context>
<context>
    <name>orvel::DiffPane</name>
    <message>
        <source>Diff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Side-by-side diff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show changes only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show full file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rendered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the Markdown rendered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close diff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No file selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a file to see its changes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This file has no changes to show.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Binary file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Binary files are not shown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(binary or unreadable file)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untracked folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(empty directory)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 item(s); not yet tracked by git.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File too large to display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Anyway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load and display this large file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>binary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview not supported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>.%1 files cannot be displayed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to load diff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hunk Action Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard Changes?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This hunk&apos;s changes will be permanently lost.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
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
</context>
<context>
    <name>orvel::DiffTextView</name>
    <message>
        <source>Side-by-side diff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Diff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stage Hunk</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstage Hunk</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard Hunk</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::FileHistorySheet</name>
    <message>
        <source>Commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subject</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Author</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>History: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 commits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No history found</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::FileSheet</name>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::FileSheetViewModel</name>
    <message>
        <source>Blame failed: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>History failed: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::FileTreeModel</name>
    <message>
        <source>%1, status %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::GitToolbar</name>
    <message>
        <source>Git Toolbar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fetch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull (Rebase)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull (FF Only)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull (Use Config)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force Push...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash Changes…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pop Stash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push (%1 to send)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull (%1 to receive)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::GraphConfirmation</name>
    <message>
        <source>Hard Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Soft Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-pick onto Dirty Working Tree</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert onto Dirty Working Tree</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset to %1? This will move HEAD to that commit and discard any uncommitted changes plus any commits that are not reachable from another branch. This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Soft reset to %1? HEAD will move to that commit and any commits in between will be squashed into staged changes. Uncommitted changes are preserved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed reset to %1? HEAD will move to that commit and any commits in between will be unstaged. Uncommitted changes are preserved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-pick %1 onto a working tree with uncommitted changes? Conflicts are possible.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert %1 onto a working tree with uncommitted changes? Conflicts are possible.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-pick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::GraphPane</name>
    <message>
        <source>Copy Commit Hash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Commit Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search Git History…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Branch from Here...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Tag Here...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-pick %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset to %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Soft: keep all changes staged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed: keep changes unstaged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hard: discard all changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Commit graph</source>
        <translation type="unfinished"></translation>
    </message>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search commits...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search commits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scope</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next match</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close search</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::GraphTableModel</name>
    <message>
        <source>Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Branch / Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Author</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ImagePairView</name>
    <message>
        <source>Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to load image</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::InitSheet</name>
    <message>
        <source>Choose Directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Initialize Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create a new Git repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository directory path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse for directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Initial branch name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uses git default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Cancel initialize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create repository</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::InitViewModel</name>
    <message>
        <source>Choose a full path for the directory, such as ~/Projects/name.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::InteractiveRebaseViewModel</name>
    <message>
        <source>Load rebase todo failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No commits to rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase conflict at step %1/%2 in %3 file(s) — resolve and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase paused at step %1/%2 — amend and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interactive rebase completed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interactive rebase failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::KeyboardSettingsTab</name>
    <message>
        <source>Press keys…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Record</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record a shortcut for %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset the shortcut of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::MainWindow</name>
    <message>
        <source>About Orvel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orvel %1</source>
        <translation>Orvel %1</translation>
    </message>
    <message>
        <source>A desktop client for Git: graph first, merges second, no noise.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Repository…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clone…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Initialize…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Workspace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Working</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a Git repository</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ManageRemotesSheet</name>
    <message>
        <source>Manage Remotes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading remotes…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No remotes configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a remote to push and pull from a server.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remotes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Remote</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remote URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>push:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Fetch URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Push URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Remote</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to remove the remote &apos;%1&apos;? This will remove all remote-tracking branches and configuration for this remote.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::ManageRemotesViewModel</name>
    <message>
        <source>A remote named &apos;%1&apos; already exists.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove remote failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not copy to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::MarkdownView</name>
    <message>
        <source>Document</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::MergeLineModel</name>
    <message>
        <source>Line %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line %1: %2, included</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line %1: %2, left out</source>
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
    <name>orvel::RebasePlanDelegate</name>
    <message>
        <source>Shell command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Command</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RebasePlanItemModel</name>
    <message>
        <source>Exec step: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit %1: %2, action: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subject</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RebasePlanSheet</name>
    <message>
        <source>Interactive Rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase onto &quot;%1&quot; (%2 commits)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commits to rebase, oldest first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the step up (Ctrl+Up)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the step down (Ctrl+Down)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit commit message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Exec</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a shell command to run between steps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Exec</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove exec step</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Autosquash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rearrange fixup!/squash! commits next to their targets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Autosquash fixup and squash commits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Cancel rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start interactive rebase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit message for commit %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RelativeDateFormatter</name>
    <message>
        <source>now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 yr. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 yr. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in 1 yr.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1 yr.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 mo. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 mo. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in 1 mo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1 mo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 wk. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 wk. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in 1 wk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1 wk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 day ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 days ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in 1 day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1 days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 hr. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 hr. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in 1 hr.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1 hr.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 min. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 min. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in 1 min.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1 min.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 sec. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sec. ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in 1 sec.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1 sec.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RepoGraphPaneViewModel</name>
    <message>
        <source>No repository loaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not copy to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resetting to %1…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverting %1…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-picking %1…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert conflict in %1 file(s). Resolve conflicts and commit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-pick conflict in %1 file(s). Resolve conflicts and commit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverted %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cherry-picked %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creating branch &apos;%1&apos;…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created branch &apos;%1&apos; at %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creating tag &apos;%1&apos;…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created annotated tag &apos;%1&apos; at %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created tag &apos;%1&apos; at %2</source>
        <translation type="unfinished"></translation>
    </message>
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
</context>
<context>
    <name>orvel::RepoHistoryAuthorsSection</name>
    <message>
        <source>Select parent %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parents:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryCommitMessageSection</name>
    <message>
        <source>Commit: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Message copied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy commit message</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No files match the filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No files changed in this commit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 file(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter changed files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A-Z</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Z-A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorted by path, ascending</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorted by path, descending</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show as list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tree</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show as tree</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryNotificationSection</name>
    <message>
        <source>%1 file(s) changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to Changes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RepoHistoryPane</name>
    <message>
        <source>Select a commit to see its message, authors and changed files.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RepositoryPreview</name>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close preview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Branches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent Commits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>README.md</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only the first %1 lines are shown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No README.md found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No branches found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>+%1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No commits yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RepositoryTabView</name>
    <message>
        <source>Changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>History</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::RewordMessageDialog</name>
    <message>
        <source>Edit Commit Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New commit message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Cancel editing message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save new message</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::SidebarFilterViewModel</name>
    <message>
        <source>Search timed out; try a simpler pattern</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::SidebarRowDelegate</name>
    <message>
        <source>CURRENT</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::SidebarTreeModel</name>
    <message>
        <source>Stash changes to save work in progress without committing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No stashes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>current branch</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::SidebarView</name>
    <message>
        <source>Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter branches, tags and stashes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whole word match: query must appear as a complete word</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whole word match</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Regular expression: use patterns like feature/.* or ^main$</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Regular expression</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manage Remotes…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Branches, tags and stashes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading branches…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Empty repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make your first commit to get started.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No matches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No branches, tags, or stashes match your query.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Branch &apos;%1&apos; is not fully merged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This branch has commits that have not been merged. Force deleting will permanently discard those commits once the reflog expires. This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete remote branch &apos;%1&apos;?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will delete the branch on the remote. This action cannot be undone locally.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete on Remote</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete tag &apos;%1&apos;?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tags do not have a reflog; this action cannot be undone locally. The remote tag (if any) is not affected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop stash?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash drops cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checkout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge &apos;%1&apos; into &apos;%2&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fast-forward &apos;%1&apos; to &apos;%2&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase &apos;%1&apos; onto &apos;%2&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interactive Rebase &apos;%1&apos; onto &apos;%2&apos;…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Branch from &apos;%1&apos;…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Tag at &apos;%1&apos;…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete on Remote…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Detail</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Tag…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New name for &apos;%1&apos;:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::SidebarViewModel</name>
    <message>
        <source>No repository loaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Already on branch &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switched to branch &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checkout did not land on &apos;%1&apos; (HEAD is &apos;%2&apos;). Resolve in terminal.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a remote branch: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid remote branch ref: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switched to local branch &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created and switched to &apos;%1&apos; tracking &apos;%2&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checked out tag &apos;%1&apos; (detached HEAD)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pushed tag &apos;%1&apos; to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot fast-forward; branches have diverged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pushed &apos;%1&apos; to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Already up to date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebased onto &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rebase conflict in %1 file(s) — resolve and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Renamed &apos;%1&apos; to &apos;%2&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleted branch &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force deleted branch &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleted remote branch &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleted tag &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash apply conflict in %1 file(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applied stash: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash apply conflict in %1 file(s) — stash kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applied OK but drop failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dropped stash: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::StashPrompt</name>
    <message>
        <source>Stash Changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter a name for this stash, or leave empty for default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
</context>
<context>
    <name>orvel::TagDetailSheet</name>
    <message>
        <source>Tag &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tag detail</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done</source>
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
<context>
    <name>orvel::ToolbarStatusView</name>
    <message>
        <source>%1 ahead, %2 behind</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::WelcomeView</name>
    <message>
        <source>Recent Repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Recents Yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open, clone or initialize a repository to see it here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Welcome to Orvel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick a repository to see its graph, its changes and its branches.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>point Orvel at a folder already under Git</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>from origin, GitHub, GitLab, or any SSH URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Initialize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>start a new repo from an empty folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>or drag a folder anywhere in this window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from Recents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a Git repository</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::WelcomeViewModel</name>
    <message>
        <source>Removed invalid repos: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceCommandPrompts</name>
    <message>
        <source>Force Push</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard Uncommitted Changes?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard %1 uncommitted change(s)? This cannot be undone. Stashing is safer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">取消</translation>
    </message>
    <message>
        <source>Discard and Create Branch</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceCommands</name>
    <message>
        <source>Fetching from %1…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fetch failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fetched from %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pulling from %1…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull conflict in %1 file(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pulled (merge)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pulled (fast-forward)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Already up to date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force pushing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pushing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force pushed to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pushed to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing to stash; working tree is clean</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stashing changes…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changes stashed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Popping stash…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash pop failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash pop conflict in %1 file(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash popped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creating branch &apos;%1&apos;…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create branch failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your changes were auto-stashed before the failed operation. Reapply from the Stash section to recover them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checkout failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Branch &apos;%1&apos; was created, but checkout failed. Your changes are on the stash stack; reapply from the Stash section.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created and checked out &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created branch &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created tag &apos;%1&apos;</source>
        <translation>已创建标签“%1”</translation>
    </message>
    <message>
        <source>Tag creation failed: %1</source>
        <translation>创建标签失败：%1</translation>
    </message>
    <message>
        <source>Branch created, but your changes are still on the stash stack. Reapply from the Stash section. (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash reapplied with conflicts in %1 file(s). Resolve before continuing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The remote branch has %1 commit(s) that are not in yours. Force pushing replaces the remote branch with yours, and those commits are lost for everyone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force pushing replaces the remote branch with yours. Commits on the remote that are not in yours are lost for everyone.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceMenu</name>
    <message>
        <source>Fetch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pull</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force Push...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Branch…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Tag…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stash Changes…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pop Stash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>orvel::WorkspaceTabState</name>
    <message>
        <source>Live refresh is off for %1: the system&apos;s limit of file watches is reached. Changes made outside Orvel show after a manual refresh.</source>
        <translation type="unfinished"></translation>
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
</context>
</TS>
